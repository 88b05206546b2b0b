// Where an item lies: it is copied, moved and deleted.
#include "desk/base/desk.h"
#include "desk/outlook/folder.h"
#include "desk/outlook/inspectors.h"
#include "desk/outlook/item.h"

namespace desk {

using automation::Value;

std::shared_ptr<Item> Item::copy_to(RowId folder) {
    ItemData data = whole();
    auto twin = std::make_shared<Item>(desk(), folder, std::move(data));
    twin->data_.fields.erase(u"CreationTime");
    twin->save();
    return twin;
}

void Item::leave_folder() {
    gone_ = true;
    desk().forget_open(id_);
    desk().item_removed(folder_, id_);
    desk().tell_item_removed(folder_);
    if (const std::shared_ptr<Inspector> shown = shown_by.lock()) shown->close_window();
}

void Item::folder_is_gone() {
    gone_ = true;
    desk().forget_open(id_);
    if (const std::shared_ptr<Inspector> shown = shown_by.lock()) shown->close_window();
}

std::shared_ptr<Item> Item::move_to(RowId target) {
    check_there();
    if (id_ == 0) {
        desk().existing_folder(target);
        folder_ = target;
        save();
        return shared_from_this();
    }
    if (changed_) save();
    check_there();  // who was told of the change may have moved or deleted it
    desk().store().move_item(id_, target);
    settle_in(target);
    return desk().open_item(id_);
}

void Item::settle_in(RowId target) {
    leave_folder();
    desk().item_added(target, id_);
    desk().tell_item_added(target, id_);
}

void Item::remove_for_good() {
    check_there();
    if (id_ != 0) {
        desk().store().remove_item(id_);
        leave_folder();
    }
    gone_ = true;
}

void Item::remove() {
    check_there();
    if (const std::shared_ptr<Inspector> shown = shown_by.lock(); shown && shown->is_open()) {
        std::vector<Value> arguments{Value(self()), false};
        raise_with_answer(u"BeforeDelete", arguments);
        if (arguments[1].to_boolean())
            throw automation::Failure(automation::result::fail, u"The deletion was cancelled.");
        check_there();  // who was asked may have moved or deleted it
    }
    // the mailbox has a place for what is deleted; shared folders have none
    const RowId bin = desk().default_folder(deleted_items_folder);
    const bool recoverable =
        id_ != 0 && bin != 0 && folder_ != bin && desk().root_of(folder_) == desk().root_of(bin);
    if (recoverable) {
        move_to(bin);
    } else {
        remove_for_good();
    }
}

}  // namespace desk
