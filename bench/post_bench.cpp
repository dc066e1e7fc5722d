// Result tables: a table of 1,000,000 displacements beside one of 1,000, opened and painted for the first time;
// scrolled page by page; sorted by a column of values, against std::sort of the bare numbers.

#include <algorithm>
#include <chrono>
#include <ctime>
#include <iostream>
#include <numeric>
#include <random>

#include "ratio_reporter.h"
#include "velda_base/host/headless_host.h"
#include "zt_db/post/memory_results.h"
#include "zt_db/records/pont.h"
#include "zt_db/records/stld.h"
#include "zt_tb/post/tb_post_view.h"

namespace {

using namespace zt;

constexpr std::uint32_t kCases = 10;
constexpr int kPage = 40;

/// A model of nodes with results of load cases.
class ResultModel {
public:
    explicit ResultModel(std::uint32_t nodes) : doc_(CDBDoc::New()) {
        CDataBase& db = *doc_->GetMDBCtrl()->GetCurrentDB();
        std::vector<std::uint32_t> keys(nodes);
        std::iota(keys.begin(), keys.end(), 1u);
        std::vector<T_PONT_D> records(nodes);
        for (std::uint32_t at = 0; at < nodes; ++at) records[at] = {.x = 1.0 * at, .no = at + 1};
        db.GetClass<CClassPont>()->TR_Add(keys, records);
        auto results = std::make_shared<MemoryResults>();
        std::mt19937 random(1);
        std::normal_distribution<double> any;
        static_cast<void>(results->PutHead({.run = "bench"}));
        static_cast<void>(results->PutKeys(ResultName::Nodes, keys));
        for (std::uint32_t key = 1; key <= kCases; ++key) {
            const std::string name = "L" + std::to_string(key);
            db.GetClass<CClassStld>()->TR_Add(key, T_STLD_D{name, "D", {}});
            std::vector<double> values(6 * std::size_t{nodes});
            for (double& value : values) value = any(random);
            static_cast<void>(results->PutCase({LoadCaseKind::Static, key, name, "D"}));
            static_cast<void>(
                results->PutArray(CasePath(LoadCaseKind::Static, key, ResultName::Displacement), 6, values));
        }
        doc_->GetMDBCtrl()->SetResults(std::move(results));
        for (std::uint32_t key = 1; key <= kCases; ++key) loads_.push_back({.key = key});
    }

    /// Opens the table of displacements with all load cases.
    std::unique_ptr<CTBPostView> Open() {
        doc_->MakeCurrent();
        auto view = std::make_unique<CTBPostView>();
        view->AddDispView();
        TB_ACTIVE_PARAM param{.hasLoads = true};
        param.loads.selected = loads_;
        view->Activate(param);
        return view;
    }

private:
    std::unique_ptr<CDBDoc> doc_;
    std::vector<LoadChoice> loads_;
};

ResultModel& Small() {
    static ResultModel model(100);
    return model;
}
ResultModel& Large() {
    static ResultModel model(100'000);
    return model;
}

/// Asks for all that a window asks for to draw a page.
void Paint(const velda::CTBCore& grid, int top) {
    for (int row = top; row < std::min(top + kPage, grid.RowCount() + 1); ++row) {
        for (int col = 1; col <= grid.GetColCount(); ++col) {
            benchmark::DoNotOptimize(grid.GetShownText(row, col));
            benchmark::DoNotOptimize(grid.StyleOf(row, col).GetInterior());
        }
    }
}

template <auto model>
void OpenAndPaint(benchmark::State& state) {
    for (auto _ : state) {
        const auto view = model().Open();
        Paint(*view->GetActiveCore(), 1);
    }
}

void SortOurs(benchmark::State& state) {
    const auto view = Large().Open();
    for (auto _ : state) {
        velda::CTBCore& grid = *view->GetActiveCore();
        if (!grid.Sort({{2, 0, 0}})) state.SkipWithError("not sorted");
    }
}

void SortPeer(benchmark::State& state) {
    std::mt19937 random(1);
    std::normal_distribution<double> any;
    std::vector<double> values(1'000'000);
    for (double& value : values) value = any(random);
    for (auto _ : state) {
        std::vector<double> sorted = values;
        std::sort(sorted.begin(), sorted.end());
        benchmark::DoNotOptimize(sorted.data());
    }
}

/// The processor time of a page that was scrolled to, in ms, that 99 of 100 pages stay below.
double ScrolledPage() {
    constexpr int kPages = 2'000;
    const auto view = Large().Open();
    const velda::CTBCore& grid = *view->GetActiveCore();
    std::mt19937 random(1);
    std::uniform_int_distribution<int> any(1, grid.RowCount() - kPage);
    std::vector<double> times;
    for (int page = 0; page < kPages; ++page) {
        const int top = any(random);
        const std::clock_t before = std::clock();
        Paint(grid, top);
        times.push_back(1000.0 * static_cast<double>(std::clock() - before) / CLOCKS_PER_SEC);
    }
    std::sort(times.begin(), times.end());
    return times[times.size() * 99 / 100];
}

constexpr const char* kOpen = "open and paint 1,000,000 displacements";
constexpr const char* kSort = "sort 1,000,000 displacements";
constexpr double kPageLimit = 16.0;

}  // namespace

int main(int count, char** arguments) {
    benchmark::Initialize(&count, arguments);
    velda::HeadlessHost host;
    const velda::UseHost use(host);
    const auto repeated = [](const char* work, const char* name, auto* run) {
        benchmark::RegisterBenchmark((std::string(work) + name).c_str(), run)
            ->Unit(benchmark::kMillisecond)
            ->Repetitions(9)
            ->UseRealTime();
    };
    Small();
    Large();
    repeated(kOpen, "/ours", &OpenAndPaint<&Large>);
    repeated(kOpen, "/peer", &OpenAndPaint<&Small>);
    repeated(kSort, "/ours", &SortOurs);
    repeated(kSort, "/peer", &SortPeer);
    const bool ratios = bench::RunAndReport({{kOpen, 1.2}, {kSort, 4.0}}, {}, 0);
    const double page = ScrolledPage();
    std::cout << "a scrolled page, 99th percentile: " << page << " ms (limit " << kPageLimit << ")\n";
    return ratios && page < kPageLimit ? 0 : 1;
}
