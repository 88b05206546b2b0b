// What is attached to an item: files, and other items whole.
#pragma once

#include "desk/outlook/item.h"

namespace desk {

/// Asks those who listen about each attachment that an item holds and the store does not; false if one of
/// them does not want it saved.
bool may_save_attachments(const std::shared_ptr<Item>& item);

class Attachments : public ModelObject<Attachments> {
  public:
    static constexpr std::string_view name = "Attachments";
    static constexpr automation::TextView default_name = u"Item";

    Attachments(Desk& desk, std::shared_ptr<Item> item) : ModelObject(desk), item_(std::move(item)) {}
    static const automation::Members<Attachments>& members();
    std::int32_t number() const override { return object_class::attachments; }
    automation::Object parent() const override { return item_->self(); }

    automation::Object at(const automation::Value& index) const;  ///< by number from 1, or by name

    /// Attaches a file by its path, or an item. Anything else that has an `Item` stands for that item, as a
    /// wrapper does.
    automation::Object add(const automation::Value& source, std::int32_t position,
                           const automation::Text& display_name);
    Item& item() const { return *item_; }

  private:
    std::shared_ptr<Item> item_;
};

class Attachment : public ModelObject<Attachment> {
  public:
    static constexpr std::string_view name = "Attachment";
    static constexpr automation::TextView default_name = u"DisplayName";

    Attachment(Desk& desk, std::shared_ptr<Item> item, std::size_t place)
        : ModelObject(desk), item_(std::move(item)), place_(place) {}
    static const automation::Members<Attachment>& members();
    std::int32_t number() const override { return object_class::attachment; }
    automation::Object parent() const override { return item_->self(); }

    const AttachmentData& data() const;
    AttachmentData& change();
    std::int32_t index() const { return static_cast<std::int32_t>(place_) + 1; }
    void remove();

    /// Bytes of the file, or of the item as a message file.
    std::string bytes() const;

    /// The attached item, opened: a copy that belongs to no folder.
    automation::Object open() const;

  private:
    std::shared_ptr<Item> item_;
    std::size_t place_;
};

}  // namespace desk
