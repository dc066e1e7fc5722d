#pragma once

#include <cstddef>
#include <functional>

namespace zt {

/// Asked within long work with how much of it is done; false stops it.
using WorkGoes = std::function<bool(std::size_t done, std::size_t of)>;

}  // namespace zt
