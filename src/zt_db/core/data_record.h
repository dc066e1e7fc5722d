#pragma once

#include <cstdint>

#include "zt_db/core/images.h"

namespace zt {

/// A record in transport: a key and a record of some class.
class DB_CData {
public:
    virtual ~DB_CData() = default;

    std::uint32_t key = 0;

    virtual const RecordIdentity& Identity() const = 0;
    /// Brings a record that was written under the previous unit system to the current one.
    virtual void ConvertUnitPrev(CUnitCtrl* units) = 0;
    /// Takes over a stored record, in current units. The list must be of the class of this object.
    virtual void Read(std::uint32_t newKey, const ImageList& images, std::uint32_t index, const CUnitCtrl& units) = 0;
};

template <class R>
class CDataOf final : public DB_CData {
public:
    R record;

    CDataOf() { record.Initialize(); }

    const RecordIdentity& Identity() const override { return IdentityOf<R>::value; }
    void ConvertUnitPrev(CUnitCtrl* units) override {
        VisitMeasured(record, [&](int code, double& value) { value = units->FromPrevious(code, value); });
    }
    void Read(std::uint32_t newKey, const ImageList& images, std::uint32_t index, const CUnitCtrl& units) override {
        key = newKey;
        record = static_cast<const Images<R>&>(images).records[index];
        RecordToCurrent(record, units);
    }
};

}  // namespace zt
