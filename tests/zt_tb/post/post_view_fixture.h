#pragma once

#include <functional>

#include "velda_base/host/headless_host.h"
#include "zt_db/post/post_fixture.h"
#include "zt_tb/post/tb_post_view.h"

namespace zt {

/// A view of results over the portal, in a window that counts the requests for its activation, in a frame.
class PostViewTest : public PortalTest {
protected:
    class Window final : public velda::HeadlessWindow {
    public:
        using HeadlessWindow::HeadlessWindow;
        int commands = 0;

    protected:
        void OnCommand(const velda::CommandMessage& command) override {
            if (command.id == ResultCommandId::Activate) ++commands;
        }
    };
    PostViewTest() {
        window.SetParentFrame(&frame);
        view.SetWindow(&window);
    }

    /// Results of the portal become current. `more` puts what else there is.
    void UseResults(const std::function<void(ResultSink&)>& more = {}) {
        auto results = std::make_shared<MemoryResults>();
        EXPECT_TRUE(PutAll(*results));
        if (more) more(*results);
        doc->GetMDBCtrl()->SetResults(results);
        doc->SetExcuted(1);
    }
    std::vector<int> Tabs() const {
        std::vector<int> tabs;
        for (int tab = 0; tab < kResultTabCount; ++tab) {
            if (view.GridOf(tab)) tabs.push_back(tab);
        }
        return tabs;
    }
    CTBPostDS* SourceOf(int tab) const { return PostSourceOf(view.GridOf(tab)); }
    /// The load cases that a tab shows.
    std::vector<LoadChoice> LoadsOf(int tab) const {
        std::vector<LoadChoice> loads;
        SourceOf(tab)->GetCurLoadCases(loads);
        return loads;
    }

    velda::HeadlessHost host;
    velda::UseHost use{host};
    velda::HeadlessFrame frame{host.queue};
    Window window{host.queue};
    CTBPostView view;
};

}  // namespace zt
