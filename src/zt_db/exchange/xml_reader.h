#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "velda_lib/outcome.h"

struct XML_ParserStruct;

namespace zt {

/// Attributes of an element, by their names without a prefix.
class XmlAttributes {
public:
    explicit XmlAttributes(const char** pairs) : pairs_(pairs) {}
    /// Empty when there is none of the name.
    std::string_view Find(std::string_view name) const;

private:
    const char** pairs_;
};

/// Receives the elements of a document. Names come without their prefixes.
class XmlHandler {
public:
    virtual ~XmlHandler() = default;
    virtual void OnBegin(std::string_view name, const XmlAttributes& attributes) = 0;
    virtual void OnEnd(std::string_view name) = 0;
    virtual void OnText(std::string_view text) = 0;
};

/// Reads an XML document block by block. Documents with a document type, and with that entities, are refused.
class XmlReader {
public:
    explicit XmlReader(XmlHandler& handler);
    ~XmlReader();
    XmlReader(const XmlReader&) = delete;
    XmlReader& operator=(const XmlReader&) = delete;

    velda::Outcome Feed(const char* bytes, std::size_t size);
    velda::Outcome Finish();
    /// Called by a handler that has seen enough: Feed takes no more, and nothing is refused.
    void Stop();
    bool IsStopped() const { return stopped_; }

private:
    struct Callbacks;

    velda::Outcome Parse(const char* bytes, std::size_t size, bool last);
    void Refuse(std::string_view key);

    XmlHandler& handler_;
    XML_ParserStruct* parser_;
    int depth_ = 0;
    bool stopped_ = false;
    std::uint64_t fed_ = 0;
    std::string refusal_;
};

}  // namespace zt
