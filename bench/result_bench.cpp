// Random access to results: the displacements of single nodes in a result file of 2,000,000 nodes, against the same
// numbers in a plain file that is mapped to memory.

#include <fcntl.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <numeric>
#include <random>

#include "ratio_reporter.h"
#include "zt_db/doc/doc.h"
#include "zt_db/post/post_ctrl.h"
#include "zt_db/post/result_file.h"
#include <sys/mman.h>

namespace {

using namespace zt;

constexpr std::uint32_t kNodes = 2'000'000;
constexpr std::size_t kReads = 100'000;
constexpr std::size_t kColumns = 6;

/// Both files, and the nodes that are read from them.
class Files {
public:
    Files() : folder_(std::filesystem::temp_directory_path() / ("zt_result_bench_" + std::to_string(getpid()))) {
        std::filesystem::create_directories(folder_);
        std::vector<double> values(kNodes * kColumns);
        std::iota(values.begin(), values.end(), 0.0);
        WriteResults(values);
        WritePlain(values);
        std::mt19937 random(1);
        std::uniform_int_distribution<std::uint32_t> any(1, kNodes);
        for (std::size_t i = 0; i < kReads; ++i) reads_.push_back(any(random));
    }
    ~Files() { std::filesystem::remove_all(folder_); }
    Files(const Files&) = delete;
    Files& operator=(const Files&) = delete;

    CDBDoc& Doc() { return *doc_; }
    const double* Plain() const { return plain_; }
    const std::vector<std::uint32_t>& Reads() const { return reads_; }

private:
    void WriteResults(const std::vector<double>& values) {
        const auto path = folder_ / "bench.results.h5";
        ResultFileWriter writer(path);
        std::vector<std::uint32_t> numbers(kNodes);
        std::iota(numbers.begin(), numbers.end(), 1U);
        const auto put = [](const velda::Outcome& outcome) {
            if (!outcome) throw std::runtime_error(outcome.Reason());
        };
        put(writer.PutHead({.run = "bench"}));
        put(writer.PutKeys(ResultName::Nodes, numbers));
        put(writer.PutCase({LoadCaseKind::Static, 1, "DL", "D"}));
        put(writer.PutArray(CasePath(LoadCaseKind::Static, 1, ResultName::Displacement), kColumns, values));
        put(writer.Finish());
        velda::Outcome outcome = velda::Outcome::Done();
        doc_ = CDBDoc::New();
        doc_->GetMDBCtrl()->SetResults(ResultFile::Open(path, outcome));
        doc_->GetPostCtrl()->SelectLoadComb(LoadCaseKind::Static, 1);
    }
    void WritePlain(const std::vector<double>& values) {
        const auto path = folder_ / "bench.bin";
        std::ofstream(path, std::ios::binary)
            .write(reinterpret_cast<const char*>(values.data()),
                   static_cast<std::streamsize>(values.size() * sizeof(double)));
        const int file = open(path.c_str(), O_RDONLY);
        plain_ =
            static_cast<const double*>(mmap(nullptr, values.size() * sizeof(double), PROT_READ, MAP_SHARED, file, 0));
        close(file);
    }

    std::filesystem::path folder_;
    std::unique_ptr<CDBDoc> doc_;
    const double* plain_ = nullptr;
    std::vector<std::uint32_t> reads_;
};

Files& TheFiles() {
    static Files files;
    return files;
}

void ReadOurs(benchmark::State& state) {
    Files& files = TheFiles();
    const CPostCtrl& post = *files.Doc().GetPostCtrl();
    for (auto _ : state) {
        double sum = 0.0;
        for (const std::uint32_t node : files.Reads()) {
            T_DISP_D displacement;
            if (!post.GetDisp(node, &displacement)) state.SkipWithError("no displacement");
            for (const double value : displacement.value) sum += value;
        }
        benchmark::DoNotOptimize(sum);
    }
}

void ReadPeer(benchmark::State& state) {
    Files& files = TheFiles();
    for (auto _ : state) {
        double sum = 0.0;
        for (const std::uint32_t node : files.Reads()) {
            const double* row = files.Plain() + (node - 1) * kColumns;
            for (std::size_t i = 0; i < kColumns; ++i) sum += row[i];
        }
        benchmark::DoNotOptimize(sum);
    }
}

constexpr const char* kWork = "displacements of 100,000 nodes";

}  // namespace

int main(int count, char** arguments) {
    benchmark::Initialize(&count, arguments);
    const auto repeated = [](const char* name, auto* run) {
        benchmark::RegisterBenchmark((std::string(kWork) + name).c_str(), run)
            ->Unit(benchmark::kMillisecond)
            ->Repetitions(9)
            ->UseRealTime();
    };
    TheFiles();
    repeated("/ours", &ReadOurs);
    repeated("/peer", &ReadPeer);
    return bench::RunAndReport({{kWork, 3.0}}, {}, 0) ? 0 : 1;
}
