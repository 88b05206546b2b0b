// What the surface shows of the desk: lists, and named values. They are read-only from outside.
#pragma once

#include <functional>

#include "desk/base/base.h"

namespace desk {

/// A collection that is read-only from outside, counted from 1.
class Listing : public ModelObject<Listing> {
  public:
    static constexpr std::string_view name = "Listing";
    static constexpr automation::TextView default_name = u"Item";
    using Count = std::function<std::size_t()>;
    using Element = std::function<automation::Value(std::size_t)>;

    Listing(Desk& desk, Count count, Element element)
        : ModelObject(desk), count_(std::move(count)), element_(std::move(element)) {}
    static const automation::Members<Listing>& members();
    std::int32_t number() const override { return object_class::none; }
    automation::Object parent() const override;

    std::size_t count() const { return count_(); }
    automation::Value at(std::int32_t place) const;

  private:
    Count count_;
    Element element_;
};

/// Named values that are read-only from outside, such as a message box with its title and text.
class Entry : public ModelObject<Entry> {
  public:
    static constexpr std::string_view name = "Entry";
    static constexpr automation::TextView default_name = u"";
    using Fields = std::vector<std::pair<automation::Text, automation::Value>>;

    /// The first field is the default member.
    Entry(Desk& desk, Fields fields) : ModelObject(desk), fields_(std::move(fields)) {}
    static const automation::Members<Entry>& members();
    std::int32_t number() const override { return object_class::none; }
    automation::Object parent() const override;

  protected:
    std::optional<automation::MemberFacts> other_facts(automation::TextView member) const override;
    automation::Value other_member(automation::Request& request) override;

  private:
    automation::MemberFacts facts_of(std::size_t place) const;

    Fields fields_;
};

}  // namespace desk
