// Typed faces: an object whose members have their literal names. A face is one line for each member.
#pragma once

#include "automation/object.h"

namespace automation {

/// Base of the faces. `Derived::kind` tells which objects share their dispatch ids.
template <class Derived>
class Face : public Object {
  public:
    Face() = default;
    explicit Face(const Object& object) : Object(object.target(), &Derived::kind) {}

  protected:
    Text text(TextView member) const { return get(member).to_text(); }
    std::int32_t integer(TextView member) const { return get(member).to_integer(); }
    bool boolean(TextView member) const { return get(member).to_boolean(); }
    Object object(TextView member) const { return get(member).to_object(); }
};

/// A face for collections: counted from 1, asked by number or by name.
template <class Derived, class Element>
class CollectionFace : public Face<Derived> {
  public:
    using Face<Derived>::Face;

    std::int32_t Count() const { return this->integer(u"Count"); }
    Element Item(const Value& index) const { return Element(this->call(u"Item", {index}).to_object()); }
};

}  // namespace automation
