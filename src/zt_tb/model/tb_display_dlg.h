#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "velda_base/host/modal_dialog.h"

namespace zt {

/// A page of the dialog of shown tables: a list of tables that can be checked.
class CTBDisplayOptBase {
public:
    struct ListItem {
        std::string name;  ///< text of the tab
        int kind = 0;
        bool isShown = false;
    };
    virtual ~CTBDisplayOptBase() = default;

    virtual std::string GetTitle() const = 0;
    /// Checks the tables that are there already.
    void SetPresent(std::span<const std::string> names);
    std::vector<ListItem>& Items() { return items_; }
    const std::vector<ListItem>& Items() const { return items_; }

protected:
    void Add(std::string_view titleKey, int kind);

private:
    std::vector<ListItem> items_;
};

/// The page of the model tables.
class CTBDisplayPreDlg final : public CTBDisplayOptBase {
public:
    CTBDisplayPreDlg();
    std::string GetTitle() const override;
};

/// The dialog in which the user chooses the tables on the tabs of a member detail.
class CTBDisplayDlg final : public velda::ModalDialog {
public:
    static constexpr std::string_view kName = "TableDisplay";

    /// Tab texts of the tables that are there.
    explicit CTBDisplayDlg(std::vector<std::string> present) : present_(std::move(present)) {}

    std::string_view GetName() const override { return kName; }
    void OnInitDialog() override { page_.SetPresent(present_); }
    CTBDisplayOptBase& Page() { return page_; }

    /// The names that are checked, in the order of the list.
    std::vector<std::string> ChosenNames() const;
    /// Present tables of the list that are no longer checked. A table that the list does not offer stays.
    std::vector<std::string> NamesToRemove() const;
    std::vector<std::string> NamesToAdd() const;
    /// The kind of a table of the list; 0 for another name.
    int KindOf(const std::string& name) const;

private:
    std::vector<std::string> present_;
    CTBDisplayPreDlg page_;
};

}  // namespace zt
