// The faces of Office's own objects: add-ins and command bars.
#pragma once

#include "automation/face.h"

namespace host::office {

using namespace automation;  // what the faces are written in

inline constexpr std::int32_t control_button = 1;    // MsoControlType
inline constexpr std::int32_t icon_and_caption = 3;  // MsoButtonStyle
inline constexpr std::int32_t bar_top = 1;           // MsoBarPosition
inline constexpr std::int32_t bar_no_customize = 1;  // MsoBarProtection, one bit

class ComAddIn : public Face<ComAddIn> {
  public:
    static constexpr Kind kind{"COMAddIn"};
    using Face::Face;

    Text ProgId() const { return text(u"ProgId"); }
    void object(const automation::Object& object) const { put(u"Object", object); }
};

class ComAddIns : public CollectionFace<ComAddIns, ComAddIn> {
  public:
    static constexpr Kind kind{"COMAddIns"};
    using CollectionFace::CollectionFace;
};

inline constexpr std::int32_t language_of_windows = 2;  // msoLanguageIDUI

class LanguageSettings : public Face<LanguageSettings> {
  public:
    static constexpr Kind kind{"LanguageSettings"};
    using Face::Face;

    std::int32_t LanguageID(std::int32_t which) const { return get(u"LanguageID", {which}).to_integer(); }
};

class CommandBarControl : public Face<CommandBarControl> {
  public:
    static constexpr Kind kind{"CommandBarControl"};
    using Face::Face;

    void Caption(TextView value) const { put(u"Caption", value); }
    void OnAction(TextView value) const { put(u"OnAction", value); }
    void Tag(TextView value) const { put(u"Tag", value); }
    void Style(std::int32_t value) const { put(u"Style", value); }
    void FaceId(std::int32_t value) const { put(u"FaceId", value); }
    void BeginGroup(bool value) const { put(u"BeginGroup", value); }
    void Visible(bool value) const { put(u"Visible", value); }
    void DescriptionText(TextView value) const { put(u"DescriptionText", value); }
    void ShortcutText(TextView value) const { put(u"ShortcutText", value); }
    void Parameter(TextView value) const { put(u"Parameter", value); }
    void Priority(std::int32_t value) const { put(u"Priority", value); }
    void Delete() const { call(u"Delete"); }
    void Reset() const { call(u"Reset"); }
};

class CommandBarControls : public CollectionFace<CommandBarControls, CommandBarControl> {
  public:
    static constexpr Kind kind{"CommandBarControls"};
    using CollectionFace::CollectionFace;

    CommandBarControl Add(std::int32_t type) const {
        return CommandBarControl(call(u"Add", {type}).to_object());
    }
    /// One that goes with its window.
    CommandBarControl AddTemporary(std::int32_t type) const {
        return CommandBarControl(call(u"Add", {type, Missing{}, Missing{}, Missing{}, true}).to_object());
    }
};

class CommandBar : public Face<CommandBar> {
  public:
    static constexpr Kind kind{"CommandBar"};
    using Face::Face;

    Text Name() const { return text(u"Name"); }
    bool BuiltIn() const { return boolean(u"BuiltIn"); }
    CommandBarControls Controls() const { return CommandBarControls(object(u"Controls")); }
    void RowIndex(std::int32_t value) const { put(u"RowIndex", value); }
    void Visible(bool value) const { put(u"Visible", value); }
    void Enabled(bool value) const { put(u"Enabled", value); }
    std::int32_t Protection() const { return integer(u"Protection"); }
    void Protection(std::int32_t bits) const { put(u"Protection", bits); }
    void Delete() const { call(u"Delete"); }

    /// The first control that bears a tag, or Nothing; of a type, if one is given.
    CommandBarControl FindControl(TextView tag) const { return find({{u"Tag", Value(tag)}}); }
    CommandBarControl FindControl(std::int32_t type, TextView tag) const {
        return find({{u"Type", type}, {u"Tag", Value(tag)}});
    }

  private:
    CommandBarControl find(std::vector<NamedArgument> named) const {
        Request request{.access = Access::call, .member = u"FindControl", .named = std::move(named)};
        return CommandBarControl(invoke(request).to_object());
    }
};

class CommandBars : public CollectionFace<CommandBars, CommandBar> {
  public:
    static constexpr Kind kind{"CommandBars"};
    using CollectionFace::CollectionFace;

    /// A bar that is no menu bar and goes with its window.
    CommandBar AddTemporary(TextView name, std::int32_t position) const {
        return CommandBar(call(u"Add", {Value(name), position, false, true}).to_object());
    }
};

}  // namespace host::office
