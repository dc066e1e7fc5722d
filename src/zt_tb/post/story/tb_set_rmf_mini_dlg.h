#pragma once

#include <array>
#include <string>
#include <string_view>

#include "velda_base/host/modal_dialog.h"
#include "zt_tb/post/story/tb_post_st_drft.h"

namespace zt {

/// The dialog in which users set the limits of a drift table, each as a text.
class CTBSetRMFMiniDlg final : public velda::ModalDialog {
public:
    static constexpr std::string_view kName = "AllowableDrift";

    /// The limits outlive the dialog.
    explicit CTBSetRMFMiniDlg(DriftLimits& limits) : limits_(limits) {}

    std::string_view GetName() const override { return kName; }
    void OnInitDialog() override;
    /// Puts what is typed into the limits. Stays open, with a message, while one of them is no number above 0; none is
    /// taken then.
    bool OnOK() override;

    /// What stands above the limits.
    static std::string Title();

    /// A limit as typed.
    struct Entry {
        std::string ratio{};
        std::string denominator{};
    };
    std::array<Entry, 2> entries{};  ///< for stories without walls, with walls

private:
    DriftLimits& limits_;
};

}  // namespace zt
