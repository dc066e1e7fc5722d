#include "zt_tb/post/result_sources.h"

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
void Register(std::string_view className) {
    velda::CTBGrid::RegisterTable(className, Source::Declared().name, &Make<Source>);
}

bool RegisterAll() {
    Register<CTBPostDisp>("CTBPostDisp");
    Register<CTBPostReac>("CTBPostReac");
    Register<CTBPostStek>("CTBPostStek");
    Register<CTBPostStDisp>("CTBPostStDisp");
    // No tab has this one: it is made by its name.
    Register<CTBPostStDrftAng>("CTBPostStDrftAng");
    Register<CTBPostStDrftQorv>("CTBPostStDrftQorv");
    Register<CTBPostStDrftTH>("CTBPostStDrftTH");
    Register<CTBPostStDrftTH2>("CTBPostStDrftTH2");
    Register<CTBPostStDrftTHNL>("CTBPostStDrftTHNL");
    Register<CTBPostStDrftPO>("CTBPostStDrftPO");
    Register<CTBPostBeamForce>("CTBPostBeamForce");
    Register<CTBPostColmForce>("CTBPostColmForce");
    Register<CTBPostBraceForce>("CTBPostBraceForce");
    Register<CTBPostWBeamForce>("CTBPostWBeamForce");
    Register<CTBPostWColmForce>("CTBPostWColmForce");
    Register<CTBPostSlabForc>("CTBPostSlabForc");
    return true;
}

/// The classes register once, before the first of them is asked for.
velda::DataSrcFactory FactoryOf(std::string_view className) {
    [[maybe_unused]] static const bool registered = RegisterAll();
    return velda::TableRegistry::OfProcess().FactoryOf(className);
}

}  // namespace

bool HasResultSource(std::string_view className) { return FactoryOf(className) != nullptr; }

std::unique_ptr<velda::CTBDataSrc> MakeResultSource(std::string_view className, int kind, int argument) {
    const velda::DataSrcFactory make = FactoryOf(className);
    return make ? make(kind, argument) : nullptr;
}

}  // namespace zt
