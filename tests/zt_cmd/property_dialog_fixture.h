#pragma once

#include <algorithm>

#include "velda_lib/language.h"
#include "zt_cmd/property_dialog.h"
#include "zt_db/doc/doc.h"
#include "zt_db/sample/sample_building.h"
#include <gtest/gtest.h>

namespace zt {

/// A small sample building, and the fields of dialogs on it by their labels.
class PropertyDialogFixture : public ::testing::Test {
protected:
    void SetUp() override {
        velda::SetCurrentLanguage(velda::Language::English);
        ASSERT_TRUE(BuildSample(Db(), "small"));
        doc->MakeCurrent();
    }
    void TearDown() override { CDBDoc::m_pDBDoc = nullptr; }

    CDataBase& Db() { return *doc->GetMDBCtrl()->GetCurrentDB(); }
    std::size_t Steps() { return Db().GetUndoNames().size(); }
    /// The field whose label begins with a text.
    static std::size_t FieldOf(const PropertyDialog& dialog, const std::string& label) {
        const auto fields = dialog.Fields();
        const auto found = std::find_if(fields.begin(), fields.end(),
                                        [&](const PropertyField& field) { return field.label.starts_with(label); });
        EXPECT_NE(found, fields.end()) << label;
        return static_cast<std::size_t>(found - fields.begin());
    }
    static void Set(PropertyDialog& dialog, const std::string& label, const std::string& text) {
        dialog.SetField(FieldOf(dialog, label), text);
    }
    static PropertyField Get(const PropertyDialog& dialog, const std::string& label) {
        return dialog.Fields()[FieldOf(dialog, label)];
    }

    std::unique_ptr<CDBDoc> doc = CDBDoc::New();
};

}  // namespace zt
