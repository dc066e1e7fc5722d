#pragma once

#include <map>

#include "zt_db/post/result_source.h"

namespace zt {

/// Results that are kept in memory.
class MemoryResults : public ResultSource, public ResultSink {
public:
    const ResultHead& Head() const override { return head_; }
    const std::vector<ResultCase>& Cases() const override { return cases_; }
    ResultArray Array(std::string_view name) const override;
    std::vector<std::uint32_t> Keys(std::string_view name) const override;
    std::vector<std::string> Names() const override;

    velda::Outcome PutHead(const ResultHead& head) override;
    velda::Outcome PutCase(const ResultCase& loadCase) override;
    velda::Outcome PutArray(std::string_view name, std::size_t columns, std::span<const double> values) override;
    velda::Outcome PutKeys(std::string_view name, std::span<const std::uint32_t> keys) override;

private:
    struct Numbers {
        std::size_t columns = 0;
        std::vector<double> values{};
    };

    ResultHead head_;
    std::vector<ResultCase> cases_;
    std::map<std::string, Numbers, std::less<>> arrays_;
    std::map<std::string, std::vector<std::uint32_t>, std::less<>> keys_;
};

}  // namespace zt
