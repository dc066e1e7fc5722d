#pragma once

#include <cstdint>
#include <string_view>

namespace velda {

/// The property dialogs of the application, opened by name. The host brings them.
class ICmdDialog {
public:
    virtual ~ICmdDialog() = default;

    /// Opens a dialog and returns when it is closed; 0 when it was cancelled or does not exist.
    virtual int DoModal(std::string_view name) = 0;
    /// The same on one record. The two further arguments are for dialogs that take more than a key.
    virtual int DoModal3(std::string_view name, std::uint32_t key, void* first, void* second) = 0;

    /// That of the current host; null where there are no dialogs.
    static ICmdDialog* Instance();
};

}  // namespace velda
