#pragma once

#include <array>

#include "zt_tb/post/load_choice.h"

namespace zt {

/// What the objects of a result table are.
namespace KeyDomain {
inline constexpr std::uint32_t None = 0;  ///< tables of stories
inline constexpr std::uint32_t Nodes = 1;
inline constexpr std::uint32_t Elements = 2;
inline constexpr std::uint32_t Members = 3;
}  // namespace KeyDomain

/// A section of what a result table shows, chosen by ticks.
template <class Key>
struct ActiveList {
    bool isOn = false;
    std::string title{};
    std::vector<std::string> names{};
    std::vector<Key> keys{};  ///< as long as `names`
    std::vector<Key> selected{};
};

/// What a section of steps counts.
namespace StepMode {
inline constexpr std::uint32_t Modes = 1;
inline constexpr std::uint32_t HingeStates = 3;
inline constexpr std::uint32_t Pushover = 4;
}  // namespace StepMode

/// What a result table shows and what it could show: it travels from the table's data source to the activation dialog
/// and back. The sections stand in the dialog in this order; one that is not on is hidden and left alone.
struct TB_ACTIVE_PARAM {
    bool hasObjects = false;
    std::uint32_t objectDomain = KeyDomain::None;
    std::vector<std::uint32_t> allObjects{};
    std::vector<std::uint32_t> selectedObjects{};

    ActiveList<std::uint32_t> kinds{};
    /// Members of these stories only. Names read module : story.
    ActiveList<std::uint32_t> stories{};

    bool hasLoads = false;
    LoadChoiceList loads{};

    ActiveList<std::int16_t> parts{};

    ActiveList<std::int16_t> steps{};
    std::uint32_t stepMode = 0;
    std::array<std::uint32_t, 2> stepOptions{};

    ActiveList<std::int16_t> last{};
};

}  // namespace zt
