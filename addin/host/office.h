// The faces of Office's own objects: add-ins and command bars.
#pragma once

#include "host/face.h"

namespace host::office {

inline constexpr std::int32_t control_button = 1;    // MsoControlType
inline constexpr std::int32_t bar_no_customize = 1;  // MsoBarProtection, one bit

class ComAddIn : public Face<ComAddIn> {
  public:
    static constexpr Kind kind{"COMAddIn"};
    using Face::Face;

    Text ProgId() const { return text(u"ProgId"); }
    void object(const host::Object& object) const { put(u"Object", object); }
};

class ComAddIns : public CollectionFace<ComAddIns, ComAddIn> {
  public:
    static constexpr Kind kind{"COMAddIns"};
    using CollectionFace::CollectionFace;
};

class CommandBarControl : public Face<CommandBarControl> {
  public:
    static constexpr Kind kind{"CommandBarControl"};
    using Face::Face;

    void Priority(std::int32_t value) const { put(u"Priority", value); }
    void Delete() const { call(u"Delete"); }
    void Reset() const { call(u"Reset"); }
};

class CommandBar : public Face<CommandBar> {
  public:
    static constexpr Kind kind{"CommandBar"};
    using Face::Face;

    std::int32_t Protection() const { return integer(u"Protection"); }
    void Protection(std::int32_t bits) const { put(u"Protection", bits); }
    void Delete() const { call(u"Delete"); }

    /// The first control of a type that bears a tag, or Nothing.
    CommandBarControl FindControl(std::int32_t type, TextView tag) const {
        Request request{.access = Access::call,
                        .member = u"FindControl",
                        .named = {{u"Type", type}, {u"Tag", Value(tag)}}};
        return CommandBarControl(invoke(request).to_object());
    }
};

class CommandBars : public CollectionFace<CommandBars, CommandBar> {
  public:
    static constexpr Kind kind{"CommandBars"};
    using CollectionFace::CollectionFace;
};

}  // namespace host::office
