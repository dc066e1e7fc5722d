#pragma once

#include <map>
#include <memory>
#include <string>
#include <string_view>

#include "velda_util/style/gx_style.h"

namespace velda {

/// An edit control with a button: what a cell is that a grid gives a control of its own.
class CGXEditBtn {
public:
    virtual ~CGXEditBtn() = default;

    /// The attributes of a cell with this control.
    virtual CGXStyle CellStyle() const { return CGXStyle().SetControl(ControlKind::PushButton); }
    /// Name of the picture that it shows; empty for none.
    virtual std::string_view PictureName() const { return {}; }
    /// The picture as an SVG file whose ink is `currentColor`, so that it can be drawn on any ground.
    virtual std::string_view PictureSvg() const { return {}; }
};

/// A control that shows a picture and has no value of its own: that of its cell stays what it is. Without a picture its
/// cell is a plain text.
class CBitmapBtnEdit final : public CGXEditBtn {
public:
    CBitmapBtnEdit(std::string_view name, std::string_view svg) : name_(name), svg_(svg) {}

    CGXStyle CellStyle() const override {
        CGXStyle style;
        style.SetValueType(ValueType::String).SetHorizontalAlignment(HorizontalAlignment::Left);
        if (!name_.empty()) style.SetControl(ControlKind::PictureButton).SetPicture(name_);
        return style;
    }
    std::string_view PictureName() const override { return name_; }
    std::string_view PictureSvg() const override { return svg_; }

private:
    std::string_view name_;  ///< both last as long as the program
    std::string_view svg_;
};

/// The controls of a grid by number.
class ControlRegistry {
public:
    /// A number that is taken gets the new control.
    void Register(int number, std::unique_ptr<CGXEditBtn> control) { controls_[number] = std::move(control); }
    /// Null for a number without a control.
    const CGXEditBtn* Find(int number) const {
        const auto found = controls_.find(number);
        return found == controls_.end() ? nullptr : found->second.get();
    }
    /// The first control that shows a picture; null where none does.
    const CGXEditBtn* FindPicture(std::string_view name) const {
        for (const auto& [number, control] : controls_) {
            if (!name.empty() && control->PictureName() == name) return control.get();
        }
        return nullptr;
    }
    std::size_t Count() const { return controls_.size(); }

private:
    std::map<int, std::unique_ptr<CGXEditBtn>> controls_;
};

}  // namespace velda
