#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "zt_db/core/data_record.h"
#include "zt_db/core/position.h"
#include "zt_db/core/step.h"

namespace zt {

/// The change buffer: the records touched by the last step that was applied, undone or redone, in the order of
/// application. Any number of readers walk it; a walk consumes nothing.
class CViewBuff {
public:
    explicit CViewBuff(const CUnitCtrl& units) : units_(units) {}
    virtual ~CViewBuff() = default;

    virtual int HasChanges() const { return entries_.empty() ? 0 : 1; }
    virtual POSITION GetHeadPosition() const { return entries_.empty() ? POSITION{} : POSITION::At(0); }
    /// The entry at `position`, which moves on to the next. The low 32 bits are a change code.
    virtual std::uint64_t GetNext(POSITION& position) const;
    /// Copies the record of an entry, in current units. Returns 0, and leaves `data` alone, when `data` is of another
    /// class than the entry or the entry is not of this buffer.
    virtual int ReadData(std::uint64_t entry, DB_CData& data) const;
    /// Key of the record of an entry that GetNext gave.
    std::uint32_t KeyOf(std::uint64_t entry) const { return entries_.at(entry >> 32).key; }

    /// Fills the buffer with a step. The step is kept until the next one.
    void Fill(std::shared_ptr<const Step> step, Direction direction);
    void Clear();
    std::size_t Count() const { return entries_.size(); }

private:
    struct Entry {
        std::uint32_t code;
        std::uint32_t key;
        std::uint32_t image;
        const ImageList* images;
    };
    void Add(ChangeEntry kind, const RecordState& state, const ImageList& images);

    const CUnitCtrl& units_;
    std::shared_ptr<const Step> step_;
    std::vector<Entry> entries_;
};

}  // namespace zt
