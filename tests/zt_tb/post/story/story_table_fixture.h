#pragma once

#include <memory>
#include <string>
#include <vector>

#include "velda_base/host/headless_host.h"
#include "velda_util/result/tb_core.h"
#include "zt_db/post/story/story_fixture.h"
#include "zt_tb/post/tb_post_ds.h"

namespace zt {

/// A story table in a grid of its own: the building of three stories, its records made by hand.
class StoryTableTest : public StoryTest {
protected:
    StoryTableTest() {
        BuildModel();
        BeginResults();
        PutCase(kSeismic, [](int, int) { return Plane{}; });
        UseResults();
    }

    template <class Source, class... Arguments>
    Source& Open(Arguments... arguments) {
        grids.push_back(std::make_unique<velda::CTBCore>());
        auto made = std::make_unique<Source>(0, arguments...);
        Source& source = *made;
        grids.back()->SetDataSrc(std::move(made));
        grids.back()->Initialize();
        grids.back()->RecCtrl().ReadRecords();
        return source;
    }
    static TB_ACTIVE_PARAM Loads(std::vector<LoadChoice> loads) {
        TB_ACTIVE_PARAM param;
        param.hasLoads = true;
        param.loads.selected = std::move(loads);
        return param;
    }
    static LoadChoice Static(std::uint32_t key) { return {key, LoadCaseKind::Static, LoadCaseSubKind::Single}; }

    /// Texts of all fields of a row, hidden ones too, with bars between them.
    static std::string RowOf(const CTBPostDS& source, int row) {
        std::string texts;
        for (int col = 1; col <= source.Grid()->GetColCount(); ++col) {
            texts += (col == 1 ? "" : "|") + source.Grid()->GetValueRowCol(row, col);
        }
        return texts;
    }
    static std::string Cell(const CTBPostDS& source, int row, int col) {
        return source.Grid()->GetValueRowCol(row, col);
    }
    /// A record of a story of the building.
    template <class Record>
    Record RecordOf(int story) {
        Record record;
        record.head = {.seq = static_cast<std::uint32_t>(stories - story + 1),
                       .mdul = 1,
                       .story = KeyOfStory(story),
                       .level = 3.0 * story,
                       .height = 3.0};
        return record;
    }

    velda::HeadlessHost host;
    velda::UseHost use{host};
    std::vector<std::unique_ptr<velda::CTBCore>> grids;
};

}  // namespace zt
