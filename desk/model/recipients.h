// The people of a mail, an appointment or a task.
#pragma once

#include "desk/model/item.h"

namespace desk {

/// The sender of a mail as an address entry; Nothing if it has none.
host::Value sender_entry(Item& item);

class Recipients : public ModelObject<Recipients> {
  public:
    static constexpr std::string_view name = "Recipients";
    static constexpr host::TextView default_name = u"Item";

    Recipients(Desk& desk, std::shared_ptr<Item> item) : ModelObject(desk), item_(std::move(item)) {}
    static const host::Members<Recipients>& members();
    std::int32_t number() const override { return object_class::recipients; }
    host::Object parent() const override { return item_->self(); }

    host::Object at(std::int32_t place) const;  ///< from 1
    host::Object named(const host::Text& person) const;
    host::Object add(const host::Text& person);
    bool resolve_all();
    Item& item() const { return *item_; }

  private:
    std::shared_ptr<Item> item_;
};

class Recipient : public ModelObject<Recipient> {
  public:
    static constexpr std::string_view name = "Recipient";
    static constexpr host::TextView default_name = u"Name";

    Recipient(Desk& desk, std::shared_ptr<Item> item, std::size_t place)
        : ModelObject(desk), item_(std::move(item)), place_(place) {}
    static const host::Members<Recipient>& members();
    std::int32_t number() const override { return object_class::recipient; }
    host::Object parent() const override { return item_->self(); }

    const Person& person() const;
    std::int32_t index() const { return static_cast<std::int32_t>(place_) + 1; }
    void kind(std::int32_t kind);
    bool resolve();
    void remove();

  private:
    std::shared_ptr<Item> item_;
    std::size_t place_;
};

class AddressEntry : public ModelObject<AddressEntry> {
  public:
    static constexpr std::string_view name = "AddressEntry";
    static constexpr host::TextView default_name = u"Name";

    AddressEntry(Desk& desk, Person person) : ModelObject(desk), person_(std::move(person)) {}
    static const host::Members<AddressEntry>& members();
    std::int32_t number() const override { return object_class::address_entry; }
    host::Object parent() const override;

    const Person& person() const { return person_; }

  private:
    Person person_;
};

/// A property of a person by its schema address; nothing if the person lacks it.
std::optional<host::Value> person_property(const Person& person, host::TextView address);

}  // namespace desk
