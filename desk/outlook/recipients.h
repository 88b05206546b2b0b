// The people of a mail, an appointment or a task.
#pragma once

#include "desk/outlook/item.h"

namespace desk {

/// The sender of a mail as an address entry; Nothing if it has none.
automation::Value sender_entry(Item& item);

class Recipients : public ModelObject<Recipients> {
  public:
    static constexpr std::string_view name = "Recipients";
    static constexpr automation::TextView default_name = u"Item";

    Recipients(Desk& desk, std::shared_ptr<Item> item) : ModelObject(desk), item_(std::move(item)) {}
    static const automation::Members<Recipients>& members();
    std::int32_t number() const override { return object_class::recipients; }
    automation::Object parent() const override { return item_->self(); }

    automation::Object at(std::int32_t place) const;  ///< from 1
    automation::Object named(const automation::Text& person) const;
    automation::Object add(const automation::Text& person);
    bool resolve_all();
    Item& item() const { return *item_; }

  private:
    std::shared_ptr<Item> item_;
};

class Recipient : public ModelObject<Recipient> {
  public:
    static constexpr std::string_view name = "Recipient";
    static constexpr automation::TextView default_name = u"Name";

    Recipient(Desk& desk, std::shared_ptr<Item> item, std::size_t place)
        : ModelObject(desk), item_(std::move(item)), place_(place) {}
    static const automation::Members<Recipient>& members();
    std::int32_t number() const override { return object_class::recipient; }
    automation::Object parent() const override;

    const Person& person() const;
    std::int32_t index() const { return static_cast<std::int32_t>(place_) + 1; }
    void kind(std::int32_t kind);
    bool resolve();
    void remove();

  private:
    std::shared_ptr<Item> item_;
    std::size_t place_;
};

/// A person as a recipient of no item.
automation::Object free_recipient(Desk& desk, Person person);

class AddressEntry : public ModelObject<AddressEntry> {
  public:
    static constexpr std::string_view name = "AddressEntry";
    static constexpr automation::TextView default_name = u"Name";

    AddressEntry(Desk& desk, Person person) : ModelObject(desk), person_(std::move(person)) {}
    static const automation::Members<AddressEntry>& members();
    std::int32_t number() const override { return object_class::address_entry; }
    automation::Object parent() const override;

    const Person& person() const { return person_; }

  private:
    Person person_;
};

/// A property of a person by its schema address; nothing if the person lacks it.
std::optional<automation::Value> person_property(const Person& person, automation::TextView address);

}  // namespace desk
