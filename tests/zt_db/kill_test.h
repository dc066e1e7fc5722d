#pragma once

#include <algorithm>
#include <chrono>
#include <random>
#include <set>
#include <thread>

#include "zt_db/child_process.h"
#include "zt_db/model_fixture.h"

namespace zt {

/// A program that works on a model file is killed at any moment. Each of its steps writes a set of records of two
/// classes with one stamp, and is reported once the call has returned.
class KillTest : public ModelFileTest {
protected:
    void KillOften(int rounds, unsigned seed) {
        std::mt19937 random(seed);
        int reported = 0;
        for (int round = 0; round < rounds && !HasFailure(); ++round) {
            SCOPED_TRACE(testing::Message() << "round " << round << " of seed " << seed);
            reported += KillOnce(static_cast<unsigned>(random()));
        }
        EXPECT_GT(reported, rounds) << "the program was killed too early to show anything";
    }

private:
    static constexpr std::uint32_t kStamps = 400;
    static constexpr std::uint32_t kSetSize = 7;

    /// What the child does with one stamp. The stamps from 1 up are written in turn; every third is taken back again,
    /// and every sixth of those made again.
    struct Report {
        enum Kind : char { Ready = 'r', Written = 'w', TakenBack = 'b', MadeAgain = 'a' };
    };

    static std::string StampName(std::uint32_t stamp) { return "stamp " + std::to_string(stamp); }

    /// Number of records of each class that carry the stamp: a half of the set each.
    static void WriteStamp(CDataBase& database, std::uint32_t stamp) {
        std::vector<std::uint32_t> keys;
        for (std::uint32_t i = 0; i < kSetSize; ++i) keys.push_back(1000 + stamp * kSetSize + i);
        T_MATL_D material;
        material.name = StampName(stamp);
        T_SECT_D section;
        section.name = material.name;
        section.description.assign(stamp % 50 * 200, 'd');  // some steps fill many pages
        const bool inGroup = stamp % 2 == 0;
        if (inGroup) {
            Check(database.BeginGroup(material.name));
            Check(database.GetClass<CClassMatl>()->TR_Add(keys, std::vector<T_MATL_D>(kSetSize, material)));
        }
        Check(database.GetClass<CClassSect>()->TR_Add(keys, std::vector<T_SECT_D>(kSetSize, section)));
        if (inGroup) Check(database.EndGroup());
    }
    static void Check(int done) {
        if (!done) _exit(3);
    }

    void Work(ChildProcess::Pipes& pipes) const {
        OpenReport childReport;
        const auto doc = CDBDoc::Open(path, OpenMode::Normal, childReport);
        Check(doc != nullptr);
        CDataBase& database = *doc->GetMDBCtrl()->GetCurrentDB();
        pipes.Send(Report::Ready);
        for (std::uint32_t stamp = 1; stamp <= kStamps; ++stamp) {
            WriteStamp(database, stamp);
            pipes.Send(Report::Written);
            if (stamp % 3 != 0) continue;
            Check(database.Undo());
            pipes.Send(Report::TakenBack);
            if (stamp % 6 != 0) continue;
            Check(database.Redo());
            pipes.Send(Report::MadeAgain);
        }
    }

    /// The number of steps that the child reported.
    int KillOnce(unsigned seed) {
        const std::string good = ReadBytes(path);
        ChildProcess child([this](ChildProcess::Pipes& pipes) { Work(pipes); });
        EXPECT_EQ(child.Receive(), Report::Ready);
        std::this_thread::sleep_for(std::chrono::microseconds(seed % 60'000));
        child.Kill();
        std::vector<char> reports;
        for (char report = child.Receive(); report != '\0'; report = child.Receive()) reports.push_back(report);
        ExpectWhole(reports);
        WriteBytes(path, good);
        return static_cast<int>(reports.size());
    }

    /// The file holds what was reported, and at most one step more, each stamp whole or not at all.
    void ExpectWhole(const std::vector<char>& reports) {
        std::unique_ptr<CDBDoc> doc = Open();
        ASSERT_NE(doc, nullptr) << report.message;
        const std::set<std::uint32_t> found = StampsIn(*doc);
        std::set<std::uint32_t> last = StampsAfter(reports.size());
        EXPECT_TRUE(found == last || found == StampsAfter(reports.size() + 1))
            << "reported " << reports.size() << " steps, found " << found.size() << " stamps, expected " << last.size();
    }

    /// The stamps that are there after a number of steps.
    static std::set<std::uint32_t> StampsAfter(std::size_t steps) {
        std::set<std::uint32_t> stamps;
        std::uint32_t stamp = 0;
        while (steps > 0) {
            stamps.insert(++stamp);
            --steps;
            if (stamp % 3 == 0 && steps > 0) {
                stamps.erase(stamp);
                --steps;
                if (stamp % 6 == 0 && steps > 0) {
                    stamps.insert(stamp);
                    --steps;
                }
            }
        }
        return stamps;
    }

    static std::set<std::uint32_t> StampsIn(CDBDoc& doc) {
        CDataBase& database = *doc.GetMDBCtrl()->GetCurrentDB();
        std::set<std::uint32_t> stamps;
        for (std::uint32_t stamp = 1; stamp <= kStamps; ++stamp) {
            const std::uint32_t sections = CountOf<CClassSect>(database, stamp);
            const std::uint32_t materials = CountOf<CClassMatl>(database, stamp);
            if (sections == 0 && materials == 0) continue;
            EXPECT_EQ(sections, kSetSize) << "of stamp " << stamp;
            EXPECT_EQ(materials, stamp % 2 == 0 ? kSetSize : 0) << "of stamp " << stamp;
            stamps.insert(stamp);
        }
        return stamps;
    }
    template <class Class>
    static std::uint32_t CountOf(const CDataBase& database, std::uint32_t stamp) {
        std::uint32_t count = 0;
        for (std::uint32_t i = 0; i < kSetSize; ++i) {
            typename Class::Record record;
            const bool found = database.GetClass<Class>()->Get(1000 + stamp * kSetSize + i, record);
            if (found && record.name == StampName(stamp)) ++count;
        }
        return count;
    }
};

}  // namespace zt
