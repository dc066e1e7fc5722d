#include "zt_db/post/result_file.h"

#include <fstream>
#include <random>

#include "velda_lib/msg_dll.h"
#include "zt_db/post/hdf5_handle.h"
#include "zt_db/post/post_fixture.h"
#include <gmock/gmock.h>

namespace zt {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::IsEmpty;
using velda::FormatText;
using velda::Outcome;

class ResultFiles : public PortalTest {
protected:
    ResultFiles() : path(folder.File("m.results.h5")) { Write(); }

    void Write() {
        ResultFileWriter writer(path);
        ASSERT_TRUE(writer.PutHead({"run 1", "print", "2026-11-22 10:00:00", "solver 한글", 9}));
        ASSERT_TRUE(PutAll(writer));
        ASSERT_TRUE(writer.Finish());
    }
    std::unique_ptr<ResultFile> Open() {
        Outcome outcome = Outcome::Done();
        auto file = ResultFile::Open(path, outcome);
        reason = outcome.Reason();
        EXPECT_EQ(file == nullptr, !outcome);
        return file;
    }
    std::string Bytes() const {
        std::ifstream file(path, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }
    void Put(const std::string& bytes) const { std::ofstream(path, std::ios::binary | std::ios::trunc) << bytes; }

    TemporaryFolder folder;
    std::string path;
    std::string reason;
};

TEST_F(ResultFiles, EverythingComesBack) {
    MemoryResults expected;
    ASSERT_TRUE(PutAll(expected));
    const auto file = Open();
    ASSERT_NE(file, nullptr) << reason;
    EXPECT_EQ(file->Head().run, "run 1");
    EXPECT_EQ(file->Head().fingerprint, "print");
    EXPECT_EQ(file->Head().time, "2026-11-22 10:00:00");
    EXPECT_EQ(file->Head().solver, "solver 한글");
    EXPECT_EQ(file->Head().stations, 9u);
    EXPECT_EQ(file->Cases(), expected.Cases());
    EXPECT_EQ(file->Names(), expected.Names());
    for (const std::string& name : expected.Names()) {
        EXPECT_EQ(file->Keys(name), expected.Keys(name)) << name;
        const ResultArray ours = file->Array(name);
        const ResultArray theirs = expected.Array(name);
        ASSERT_EQ(ours.Rows(), theirs.Rows()) << name;
        ASSERT_EQ(ours.Columns(), theirs.Columns()) << name;
        for (std::size_t row = 0; row < ours.Rows(); ++row) {
            for (std::size_t i = 0; i < ours.Columns(); ++i) EXPECT_EQ(ours.At(row, i), theirs.At(row, i)) << name;
        }
    }
}

TEST_F(ResultFiles, ArraysOutliveTheFileThatGaveThem) {
    auto file = Open();
    const ResultArray array = file->Array("modal/shape/1");
    file.reset();
    EXPECT_EQ(array.At(3, 0), 4.0);
}

TEST_F(ResultFiles, WhatIsNotThereHasNoRows) {
    const auto file = Open();
    EXPECT_FALSE(file->Array("modal/shape/9"));
    EXPECT_FALSE(file->Array(ResultName::Nodes));
    EXPECT_THAT(file->Keys("modal/shape/1"), IsEmpty());
    EXPECT_THAT(file->Keys(""), IsEmpty());
    EXPECT_EQ(file->Array("modal/shape/1").Row(4), nullptr);
    EXPECT_EQ(file->Array("modal/shape/1").At(0, 6), 0.0);
}

TEST_F(ResultFiles, AWriterThatIsNotFinishedLeavesTheOldFile) {
    const std::string before = Bytes();
    {
        ResultFileWriter writer(path);
        ASSERT_TRUE(writer.PutHead({"run 2"}));
        ASSERT_TRUE(PutModel(writer));
        EXPECT_EQ(Bytes(), before);
    }
    EXPECT_EQ(Bytes(), before);
    EXPECT_EQ(std::distance(fs::directory_iterator(folder.Path()), {}), 1);
}

TEST_F(ResultFiles, ANewFileTakesThePlaceOfOneThatIsBeingRead) {
    const auto old = Open();
    const ResultArray array = old->Array("modal/shape/1");
    ResultFileWriter writer(path);
    ASSERT_TRUE(writer.PutHead({"run 2"}));
    ASSERT_TRUE(writer.Finish());
    EXPECT_EQ(array.At(2, 0), 3.0);
    EXPECT_EQ(Open()->Head().run, "run 2");
}

TEST_F(ResultFiles, AFolderThatCannotBeWrittenToIsTold) {
    ResultFileWriter writer(folder.File("none") + "/x.results.h5");
    EXPECT_FALSE(writer.PutHead({"run"}));
    const Outcome outcome = writer.Finish();
    EXPECT_FALSE(outcome);
    EXPECT_THAT(outcome.Reason(), testing::HasSubstr("none/x.results.h5"));
}

TEST_F(ResultFiles, OtherFilesAreRefusedWithAReason) {
    fs::remove(path);
    EXPECT_EQ(Open(), nullptr);
    EXPECT_EQ(reason, FormatText("IDS_DB_RESULT_NOT_FOUND", {path}));
    for (const std::string& bytes : {std::string(), std::string("no results"), std::string(5000, 'x')}) {
        Put(bytes);
        EXPECT_EQ(Open(), nullptr);
        EXPECT_EQ(reason, FormatText("IDS_DB_RESULT_NOT_RESULTS", {path}));
    }
}

TEST_F(ResultFiles, AnotherProgramsFileAndANewerFormatAreRefused) {
    fs::remove(path);
    const auto write = [&](const char* format, std::int64_t version) {
        const Hdf5File file(H5Fcreate(path.c_str(), H5F_ACC_TRUNC, H5P_DEFAULT, H5P_DEFAULT));
        const Hdf5Type type(H5Tcopy(H5T_C_S1));
        H5Tset_size(type.Id(), std::char_traits<char>::length(format) + 1);
        const Hdf5Space space(H5Screate(H5S_SCALAR));
        const Hdf5Attribute text(H5Acreate2(file.Id(), "format", type.Id(), space.Id(), H5P_DEFAULT, H5P_DEFAULT));
        H5Awrite(text.Id(), type.Id(), format);
        const Hdf5Attribute number(
            H5Acreate2(file.Id(), "version", H5T_STD_I64LE, space.Id(), H5P_DEFAULT, H5P_DEFAULT));
        H5Awrite(number.Id(), H5T_NATIVE_INT64, &version);
    };
    write("pictures", 1);
    EXPECT_EQ(Open(), nullptr);
    EXPECT_EQ(reason, FormatText("IDS_DB_RESULT_NOT_RESULTS", {path}));
    write("zt-results", 7);
    EXPECT_EQ(Open(), nullptr);
    EXPECT_EQ(reason, FormatText("IDS_DB_RESULT_NEWER", {path, "7", "1"}));
    write("zt-results", 1);
    EXPECT_NE(Open(), nullptr);
}

/// A file of another program: compressed blocks, another order of bytes, a list instead of rows.
TEST_F(ResultFiles, ArraysThatDoNotLieInOnePieceAreReadByBlocks) {
    constexpr hsize_t kRows = 10000;
    {
        const Hdf5File file(H5Fopen(path.c_str(), H5F_ACC_RDWR, H5P_DEFAULT));
        std::vector<double> values(kRows * 6);
        for (std::size_t i = 0; i < values.size(); ++i) values[i] = static_cast<double>(i);
        const hsize_t size[] = {kRows, 6};
        const hsize_t chunk[] = {512, 6};
        const Hdf5Properties place(H5Pcreate(H5P_DATASET_CREATE));
        H5Pset_chunk(place.Id(), 2, chunk);
        H5Pset_deflate(place.Id(), 1);
        const Hdf5Space rows(H5Screate_simple(2, size, nullptr));
        const Hdf5Dataset blocks(
            H5Dcreate2(file.Id(), "blocks", H5T_IEEE_F32BE, rows.Id(), H5P_DEFAULT, place.Id(), H5P_DEFAULT));
        H5Dwrite(blocks.Id(), H5T_NATIVE_DOUBLE, H5S_ALL, H5S_ALL, H5P_DEFAULT, values.data());
        const Hdf5Space line(H5Screate_simple(1, size, nullptr));
        const Hdf5Dataset list(
            H5Dcreate2(file.Id(), "list", H5T_IEEE_F64BE, line.Id(), H5P_DEFAULT, H5P_DEFAULT, H5P_DEFAULT));
        H5Dwrite(list.Id(), H5T_NATIVE_DOUBLE, H5S_ALL, H5S_ALL, H5P_DEFAULT, values.data());
    }
    const auto file = Open();
    const ResultArray blocks = file->Array("blocks");
    const ResultArray list = file->Array("list");
    ASSERT_EQ(blocks.Rows(), kRows);
    ASSERT_EQ(list.Rows(), kRows);
    EXPECT_EQ(list.Columns(), 1u);
    for (const std::size_t row : {std::size_t{0}, std::size_t{9999}, std::size_t{4096}, std::size_t{4095}}) {
        EXPECT_EQ(blocks.At(row, 5), static_cast<double>(6 * row + 5));
        EXPECT_EQ(list.At(row, 0), static_cast<double>(row));
    }
    EXPECT_EQ(blocks.Row(kRows), nullptr);
}

TEST_F(ResultFiles, ATruncatedFileIsRefusedOrReadAsFarAsItGoes) {
    const std::string good = Bytes();
    for (std::size_t size = 0; size < good.size(); size += good.size() / 60 + 1) {
        Put(good.substr(0, size));
        const auto file = Open();
        if (!file) {
            EXPECT_FALSE(reason.empty());
            continue;
        }
        for (const std::string& name : file->Names()) {
            const ResultArray array = file->Array(name);
            for (std::size_t row = 0; row < array.Rows(); ++row) (void)array.At(row, 0);
            (void)file->Keys(name);
        }
    }
}

TEST_F(ResultFiles, ChangedBytesNeverBreakTheProgram) {
    const std::string good = Bytes();
    std::mt19937 random(7);
    std::uniform_int_distribution<std::size_t> place(0, good.size() - 1);
    std::uniform_int_distribution<int> byte(0, 255);
    for (int round = 0; round < 60; ++round) {
        std::string bad = good;
        for (int i = 0; i < 4; ++i) bad[place(random)] = static_cast<char>(byte(random));
        Put(bad);
        const auto file = Open();
        if (!file) continue;
        for (const std::string& name : file->Names()) {
            const ResultArray array = file->Array(name);
            if (array.Rows() < 100000) {
                for (std::size_t row = 0; row < array.Rows(); ++row) (void)array.At(row, 0);
            }
            (void)file->Keys(name);
        }
    }
}

}  // namespace
}  // namespace zt
