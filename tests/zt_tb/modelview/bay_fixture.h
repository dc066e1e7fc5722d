#pragma once

#include "zt_tb/modelview/model_view.h"
#include "zt_tb/support/number_tables.h"

namespace zt {

/// A model of one bay, 8 m by 7 m and 4 m high: columns 1 to 4 from the nodes 1 to 4 up to 5 to 8, beams 5 to 8 around
/// the top, slab 9 on them, wall 10 at x = 0.
class BayTest : public TableTest {
protected:
    static constexpr std::uint32_t kSlab = 9;
    static constexpr std::uint32_t kWall = 10;
    static constexpr std::uint32_t kOpening = 11;
    static constexpr std::uint32_t kBase = 1;
    static constexpr std::uint32_t kTop = 2;

    BayTest() {
        AddNamed<CClassMdul>(1, "Main");
        AddStory(kBase, "Base", 1, 0.0);
        AddStory(kTop, "1F", 1, 4.0);
        for (std::uint32_t story = kBase; story <= kTop; ++story) {
            const std::uint32_t first = story == kBase ? 1 : 5;
            AddPlace(first, 0.0, 0.0, story);
            AddPlace(first + 1, 8.0, 0.0, story);
            AddPlace(first + 2, 8.0, 7.0, story);
            AddPlace(first + 3, 0.0, 7.0, story);
        }
        for (std::uint32_t at = 0; at < 4; ++at) {
            AddTyped(at + 1, MembType::Column, {at + 1, at + 5});
            AddTyped(at + 5, 201, {at + 5, (at + 1) % 4 + 5});
        }
        AddTyped(kSlab, MembType::Slab, {5, 6, 7, 8});
        AddTyped(kWall, MembType::Wall, {1, 4, 8, 5});
    }
    void AddPlace(std::uint32_t key, double x, double y, std::uint32_t story, double z = 0.0) {
        T_PONT_D node{.x = x, .y = y, .z = z, .story = story};
        node.no = key;
        Add<CClassPont>(key, node);
    }
    void AddTyped(std::uint32_t key, int type, std::vector<std::uint32_t> nodes) {
        T_MEMB_D member{.type = type, .no = key};
        member.nodes = std::move(nodes);
        Add<CClassMemb>(key, member);
    }
    /// An opening of 2 m by 2 m, from 3 m to 5 m in x and y, at a height over the top story.
    void AddOpening(double z = 0.0) {
        AddPlace(21, 3.0, 3.0, kTop, z);
        AddPlace(22, 5.0, 3.0, kTop, z);
        AddPlace(23, 5.0, 5.0, kTop, z);
        AddPlace(24, 3.0, 5.0, kTop, z);
        AddTyped(kOpening, 302, {21, 22, 23, 24});
    }
    void MoveNode(std::uint32_t key, double x) {
        T_PONT_D node;
        ASSERT_TRUE(Records<CClassPont>().Get(key, node));
        node.x = x;
        ASSERT_TRUE(Records<CClassPont>().TR_Modify(key, key, node));
    }
};

/// The bay in a view of 400 by 300 pixels.
class BayViewTest : public BayTest {
protected:
    BayViewTest() {
        view.SetSize(400.0, 300.0);
        view.SetDocument(doc.get());
    }
    ~BayViewTest() override { view.SetDocument(nullptr); }
    /// What a test hears of the view goes before the test does.
    void TearDown() override {
        view.onChanged = nullptr;
        view.onLoadCases = nullptr;
    }
    Point2 PlaceOf(const Vec3& place) const { return view.View().Project(place).Flat(); }
    CViewCtrl& State() { return *Db().GetViewCtrl(); }

    ModelView view;
};

}  // namespace zt
