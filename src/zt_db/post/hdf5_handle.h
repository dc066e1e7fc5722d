#pragma once

#include <hdf5.h>

#include <utility>

namespace zt {

/// An identifier of the HDF5 library that is closed when it goes.
template <herr_t (*Close)(hid_t)>
class Hdf5Handle {
public:
    Hdf5Handle() = default;
    explicit Hdf5Handle(hid_t id) : id_(id) {}
    ~Hdf5Handle() {
        if (id_ >= 0) Close(id_);
    }
    Hdf5Handle(Hdf5Handle&& other) noexcept : id_(std::exchange(other.id_, H5I_INVALID_HID)) {}
    Hdf5Handle& operator=(Hdf5Handle&& other) noexcept {
        std::swap(id_, other.id_);
        return *this;
    }

    hid_t Id() const { return id_; }
    explicit operator bool() const { return id_ >= 0; }

private:
    hid_t id_ = H5I_INVALID_HID;
};

using Hdf5File = Hdf5Handle<H5Fclose>;
using Hdf5Group = Hdf5Handle<H5Gclose>;
using Hdf5Dataset = Hdf5Handle<H5Dclose>;
using Hdf5Space = Hdf5Handle<H5Sclose>;
using Hdf5Type = Hdf5Handle<H5Tclose>;
using Hdf5Attribute = Hdf5Handle<H5Aclose>;
using Hdf5Properties = Hdf5Handle<H5Pclose>;
using Hdf5Object = Hdf5Handle<H5Oclose>;

/// Keeps the library from printing its errors.
inline void SilenceHdf5() { H5Eset_auto2(H5E_DEFAULT, nullptr, nullptr); }

}  // namespace zt
