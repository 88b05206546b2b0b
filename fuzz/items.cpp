// Items of any bytes: read or refused. What is read is written and read again without a change.
#include "desk/store/item_codec.h"
#include "fuzz/targets.h"

namespace {

desk::ItemData item_with_everything() {
    automation::Array grid({1, 2}, {0, 2});
    grid.at(2, 1) = automation::Value(u"corner");
    desk::ItemData item;
    item.message_class = u"IPM.Note";
    item.fields = {
        {u"Subject", u"a subject"},
        {u"Wide", u"\u0416\u4E2D"},
        {u"UnRead", true},
        {u"Size", 512},
        {u"Amount", 1.5},
        {u"CreationTime", automation::Date{46084.4}},
        {u"None", automation::Null{}},
        {u"Grid", std::move(grid)},
        {u"List", automation::Array::of({automation::Value(u"x"), 5, automation::Array::of({true})})}};
    item.user_properties = {{u"Account Name", 1, u"Acme"}, {u"Never set", 5, automation::Value()}};
    item.recipients = {{u"Ann", u"/o=Example/cn=ann", u"EX", u"ann@one.example", 2, false}};
    return item;
}

}  // namespace

fuzz::Seeds fuzz::item_seeds() {
    const desk::ItemData plain = item_with_everything();
    desk::ItemData outer = plain;
    outer.attachments.emplace_back().content = "bytes";
    outer.attachments.emplace_back().item = std::make_shared<const desk::ItemData>(plain);
    return {desk::write_item(plain), desk::write_item(outer), desk::write_item({})};
}

bool fuzz::try_item(std::string_view input) {
    desk::ItemData item;
    try {
        item = desk::read_item(input);
    } catch (const automation::Failure&) {
        return false;
    }
    const std::string written = desk::write_item(item);
    require(desk::write_item(desk::read_item(written)) == written, "an item changes when it is written");
    return true;
}
