// What the desk offers beyond the real host: to drive and watch from outside what a person would.
#pragma once

#include <functional>

#include "desk/model/base.h"

namespace desk {

/// A collection that is read-only from outside, counted from 1.
class Listing : public ModelObject<Listing> {
  public:
    static constexpr std::string_view name = "Listing";
    static constexpr host::TextView default_name = u"Item";
    using Count = std::function<std::size_t()>;
    using Element = std::function<host::Value(std::size_t)>;

    Listing(Desk& desk, Count count, Element element)
        : ModelObject(desk), count_(std::move(count)), element_(std::move(element)) {}
    static const host::Members<Listing>& members();
    std::int32_t number() const override { return object_class::none; }
    host::Object parent() const override;

    std::size_t count() const { return count_(); }
    host::Value at(std::int32_t place) const;

  private:
    Count count_;
    Element element_;
};

/// Named values that are read-only from outside, such as a message box with its title and text.
class Entry : public ModelObject<Entry> {
  public:
    static constexpr std::string_view name = "Entry";
    static constexpr host::TextView default_name = u"";
    using Fields = std::vector<std::pair<host::Text, host::Value>>;

    /// The first field is the default member.
    Entry(Desk& desk, Fields fields) : ModelObject(desk), fields_(std::move(fields)) {}
    static const host::Members<Entry>& members();
    std::int32_t number() const override { return object_class::none; }
    host::Object parent() const override;

  protected:
    host::Value other_member(host::Request& request) override;

  private:
    Fields fields_;
};

class Explorer;

class Surface : public ModelObject<Surface> {
  public:
    static constexpr std::string_view name = "Desk";
    static constexpr host::TextView default_name = u"";

    using ModelObject::ModelObject;
    static const host::Members<Surface>& members();
    std::int32_t number() const override { return object_class::none; }
    host::Object parent() const override;

    host::Object messages();
    host::Object programs();
    host::Object calls();
    host::Object statuses();
    host::Object filters();
    host::Object opened();
    host::Value live(const host::Value& kind);
    host::Value option(const host::Text& option_name) const;
    void option(const host::Text& option_name, const host::Value& value);
    void select(const std::vector<host::Value>& items);
    void drag(const host::Value& folder, bool copies);
    void press(const host::Value& control);
    host::Object context_menu();
    host::Object window(const host::Text& caption);
    /// Makes copies of an item, each with a number of its own, "001" and so on, behind the text of one field.
    void copies(const host::Object& original, std::int32_t count, const host::Text& field);
    void meanwhile(const host::Text& moment, const host::Object& object, const host::Text& member,
                   const host::Value& value);

  private:
    Explorer& active_explorer();
};

}  // namespace desk
