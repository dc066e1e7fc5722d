#pragma once

#include <string>
#include <vector>

#include "zt_db/doc/doc.h"

namespace zt {

/// Every record of a model as "PONT 3 [x=1 y=2 ...]", in SI units.
inline std::vector<std::string> AllRecords(CDBDoc& doc) {
    std::vector<std::string> texts;
    const CDataBase& database = *doc.GetMDBCtrl()->GetCurrentDB();
    for (std::uint16_t i = 0; i < database.ClassCount(); ++i) {
        const RecordStoreBase& store = database.StoreAt(i);
        for (const std::uint32_t key : store.SortedKeys()) {
            const std::unique_ptr<ImageList> images = store.NewImages();
            const std::uint32_t image = store.CopyTo(key, *images);
            std::string text = std::string(store.Identity().mnemonic) + " " + std::to_string(key) + " [";
            int column = 0;
            for (const std::string& name : store.ColumnNames()) {
                text += " " + name + "=" + images->FieldText(image, column++);
            }
            texts.push_back(text + " ]");
        }
    }
    return texts;
}

}  // namespace zt
