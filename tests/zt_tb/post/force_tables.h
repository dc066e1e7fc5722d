#pragma once

#include "velda_base/host/headless_host.h"
#include "velda_util/result/tb_core.h"
#include "zt_db/post/post_fixture.h"
#include "zt_tb/post/tb_post_ds.h"
#include <gmock/gmock.h>

namespace zt {

/// Grids of results over the portal.
class ForceTables : public PortalTest {
protected:
    std::shared_ptr<MemoryResults> PutResults() {
        auto results = std::make_shared<MemoryResults>();
        EXPECT_TRUE(PutAll(*results));
        doc->GetMDBCtrl()->SetResults(results);
        return results;
    }
    template <class Source>
    Source& Open(int tab) {
        auto made = std::make_unique<Source>(tab);
        Source& source = *made;
        grid = std::make_unique<velda::CTBCore>();
        grid->SetDataSrc(std::move(made));
        grid->Initialize();
        grid->RecCtrl().ReadRecords();
        return source;
    }
    static TB_ACTIVE_PARAM Choice(std::vector<std::uint32_t> objects,
                                  std::vector<LoadChoice> loads = {{.key = kDead}}) {
        TB_ACTIVE_PARAM param;
        param.hasObjects = true;
        param.selectedObjects = std::move(objects);
        param.hasLoads = true;
        param.loads.selected = std::move(loads);
        return param;
    }
    static std::vector<std::uint32_t> Keys(const CTBPostDS& source) {
        std::vector<std::uint32_t> keys;
        source.GetCurObjectKeys(keys);
        return keys;
    }
    /// What stands in a row, hidden columns included.
    std::vector<std::string> Row(int row) const {
        std::vector<std::string> texts;
        for (int col = 1; col <= grid->GetColCount(); ++col) texts.push_back(grid->GetValueRowCol(row, col));
        return texts;
    }

    velda::HeadlessHost host;
    velda::UseHost use{host};
    std::unique_ptr<velda::CTBCore> grid;
};

}  // namespace zt
