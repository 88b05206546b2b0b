// What the desk offers beyond the real host: to drive and watch from outside what a person would.
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
    automation::Value other_member(automation::Request& request) override;

  private:
    Fields fields_;
};

class Explorer;

class Surface : public ModelObject<Surface> {
  public:
    static constexpr std::string_view name = "Desk";
    static constexpr automation::TextView default_name = u"";

    using ModelObject::ModelObject;
    static const automation::Members<Surface>& members();
    std::int32_t number() const override { return object_class::none; }
    automation::Object parent() const override;

    automation::Object messages();
    automation::Object programs();
    automation::Object calls();
    automation::Object statuses();
    automation::Object filters();
    automation::Object opened();
    automation::Value live(const automation::Value& kind);
    automation::Value option(const automation::Text& option_name) const;
    void option(const automation::Text& option_name, const automation::Value& value);
    void select(const std::vector<automation::Value>& items);
    void drag(const automation::Value& folder, bool copies);
    void press(const automation::Value& control);
    automation::Object context_menu();
    automation::Object window(const automation::Text& caption);
    /// Makes copies of an item, each with a number of its own, "001" and so on, behind the text of one field.
    void copies(const automation::Object& original, std::int32_t count, const automation::Text& field);
    void meanwhile(const automation::Text& moment, const automation::Object& object,
                   const automation::Text& member, const automation::Value& value);

  private:
    Explorer& active_explorer();
};

}  // namespace desk
