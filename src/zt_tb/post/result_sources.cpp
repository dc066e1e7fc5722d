#include "zt_tb/post/result_sources.h"

#include <algorithm>
#include <type_traits>

#include "velda_util/grid/tb_grid.h"
#include "zt_tb/post/story/tb_post_st_disp.h"
#include "zt_tb/post/story/tb_post_st_drft.h"
#include "zt_tb/post/story/tb_post_st_drft_th.h"
#include "zt_tb/post/tb_post_memb_force.h"
#include "zt_tb/post/tb_post_node.h"
#include "zt_tb/post/tb_post_slab_forc.h"

namespace zt {
namespace {

template <class Source>
std::unique_ptr<velda::CTBDataSrc> Make(int kind, [[maybe_unused]] int argument) {
    if constexpr (std::is_constructible_v<Source, int, int>) {
        return std::make_unique<Source>(kind, argument);
    } else {
        return std::make_unique<Source>(kind);
    }
}

template <class Source>
constexpr ResultSourceClass Of(std::string_view name) {
    return {name, &Source::Declared, &Make<Source>};
}

constexpr ResultSourceClass kClasses[] = {
    Of<CTBPostDisp>("CTBPostDisp"),
    Of<CTBPostReac>("CTBPostReac"),
    Of<CTBPostStek>("CTBPostStek"),
    Of<CTBPostStDisp>("CTBPostStDisp"),
    // No tab has this one: it is made by its name.
    Of<CTBPostStDrftAng>("CTBPostStDrftAng"),
    Of<CTBPostStDrftQorv>("CTBPostStDrftQorv"),
    Of<CTBPostStDrftTH>("CTBPostStDrftTH"),
    Of<CTBPostStDrftTH2>("CTBPostStDrftTH2"),
    Of<CTBPostStDrftTHNL>("CTBPostStDrftTHNL"),
    Of<CTBPostStDrftPO>("CTBPostStDrftPO"),
    Of<CTBPostBeamForce>("CTBPostBeamForce"),
    Of<CTBPostColmForce>("CTBPostColmForce"),
    Of<CTBPostBraceForce>("CTBPostBraceForce"),
    Of<CTBPostWBeamForce>("CTBPostWBeamForce"),
    Of<CTBPostWColmForce>("CTBPostWColmForce"),
    Of<CTBPostSlabForc>("CTBPostSlabForc"),
};

template <std::size_t At>
void AddPreferencesOf(std::vector<velda::STBPrefItem>& items) {
    AddPreferences(kClasses[At].declaration(), items);
}

template <std::size_t... At>
bool RegisterAll(std::index_sequence<At...>) {
    (velda::CTBGrid::RegisterTable(kClasses[At].declaration().name, &AddPreferencesOf<At>), ...);
    return true;
}

/// Registers the tables once, before their preferences are asked for.
void RegisterTables() {
    [[maybe_unused]] static const bool registered = RegisterAll(std::make_index_sequence<std::size(kClasses)>());
}

}  // namespace

std::span<const ResultSourceClass> ResultSourceClasses() {
    RegisterTables();
    return kClasses;
}

const ResultSourceClass* FindResultSourceClass(std::string_view name) {
    const std::span<const ResultSourceClass> classes = ResultSourceClasses();
    const auto found =
        std::find_if(classes.begin(), classes.end(), [&](const ResultSourceClass& one) { return one.name == name; });
    return found == classes.end() ? nullptr : &*found;
}

std::unique_ptr<velda::CTBDataSrc> MakeResultSource(std::string_view name, int kind, int argument) {
    const ResultSourceClass* found = FindResultSourceClass(name);
    return found ? found->make(kind, argument) : nullptr;
}

}  // namespace zt
