#include "zt_db/exchange/xml_reader.h"

#include <expat.h>

#include <new>

#include "velda_lib/msg_dll.h"
#include "velda_lib/number_text.h"

namespace zt {
namespace {

using velda::FormatText;
using velda::Outcome;

constexpr int kMostDepth = 64;
/// The parser looks at an unfinished tag again with every block, so that a long one would take time without end.
constexpr std::uint64_t kMostPending = std::uint64_t{4} << 20;

std::string_view WithoutPrefix(std::string_view name) { return name.substr(name.find(':') + 1); }

}  // namespace

std::string_view XmlAttributes::Find(std::string_view name) const {
    for (const char** pair = pairs_; *pair; pair += 2) {
        if (WithoutPrefix(pair[0]) == name) return pair[1];
    }
    return {};
}

/// What the parser calls.
struct XmlReader::Callbacks {
    static XmlReader& Of(void* data) { return *static_cast<XmlReader*>(data); }

    static void Begin(void* data, const XML_Char* name, const XML_Char** attributes) {
        XmlReader& reader = Of(data);
        if (reader.stopped_) return;
        if (++reader.depth_ > kMostDepth) return reader.Refuse("IDS_XCH_XML_TOO_DEEP");
        reader.handler_.OnBegin(WithoutPrefix(name), XmlAttributes(attributes));
    }
    static void End(void* data, const XML_Char* name) {
        XmlReader& reader = Of(data);
        if (reader.stopped_) return;
        --reader.depth_;
        reader.handler_.OnEnd(WithoutPrefix(name));
    }
    static void Text(void* data, const XML_Char* text, int length) {
        XmlReader& reader = Of(data);
        if (!reader.stopped_) reader.handler_.OnText({text, static_cast<std::size_t>(length)});
    }
    static void DocumentType(void* data, const XML_Char*, const XML_Char*, const XML_Char*, int) {
        Of(data).Refuse("IDS_XCH_XML_DOCTYPE");
    }
};

XmlReader::XmlReader(XmlHandler& handler) : handler_(handler), parser_(XML_ParserCreate(nullptr)) {
    if (!parser_) throw std::bad_alloc();
    XML_SetUserData(parser_, this);
    XML_SetElementHandler(parser_, Callbacks::Begin, Callbacks::End);
    XML_SetCharacterDataHandler(parser_, Callbacks::Text);
    XML_SetStartDoctypeDeclHandler(parser_, Callbacks::DocumentType);
}

XmlReader::~XmlReader() { XML_ParserFree(parser_); }

void XmlReader::Stop() {
    if (stopped_) return;
    stopped_ = true;
    XML_StopParser(parser_, XML_FALSE);
}

void XmlReader::Refuse(std::string_view key) {
    refusal_ = FormatText(key, {velda::FormatLong(static_cast<std::int64_t>(XML_GetCurrentLineNumber(parser_)))});
    Stop();
}

Outcome XmlReader::Parse(const char* bytes, std::size_t size, bool last) {
    if (stopped_) return refusal_.empty() ? Outcome::Done() : Outcome::Refused(refusal_);
    const XML_Status status = XML_Parse(parser_, bytes, static_cast<int>(size), last);
    fed_ += size;
    if (!refusal_.empty()) return Outcome::Refused(refusal_);
    if (stopped_) return Outcome::Done();
    if (status != XML_STATUS_OK) {
        const auto line = velda::FormatLong(static_cast<std::int64_t>(XML_GetCurrentLineNumber(parser_)));
        return Outcome::Refused(FormatText("IDS_XCH_XML_DAMAGED", {XML_ErrorString(XML_GetErrorCode(parser_)), line}));
    }
    const auto at = static_cast<std::uint64_t>(XML_GetCurrentByteIndex(parser_));
    if (!last && fed_ > at + kMostPending) Refuse("IDS_XCH_XML_LONG_TAG");
    return refusal_.empty() ? Outcome::Done() : Outcome::Refused(refusal_);
}

Outcome XmlReader::Feed(const char* bytes, std::size_t size) { return Parse(bytes, size, false); }

Outcome XmlReader::Finish() { return Parse("", 0, true); }

}  // namespace zt
