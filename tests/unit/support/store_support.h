// Files and items for the tests of the store.
#pragma once

#include <gtest/gtest.h>

#include "desk/store/store.h"
#include "tests/native/temporary_folder.h"

namespace store_tests {

using native::TemporaryFolder;

inline desk::FolderRow folder_named(const char16_t* name, desk::RowId parent = 0) {
    desk::FolderRow folder;
    folder.parent = parent;
    folder.name = name;
    return folder;
}

inline desk::ItemData item_with_subject(automation::TextView subject) {
    desk::ItemData item;
    item.message_class = u"IPM.Note";
    item.fields[u"Subject"] = subject;
    return item;
}

inline desk::AttachmentData file_attachment(std::string content) {
    desk::AttachmentData attachment;
    attachment.file_name = u"file.txt";
    attachment.content = std::move(content);
    return attachment;
}

/// An item that has something of everything.
inline desk::ItemData rich_item() {
    automation::Array grid({1, 2}, {-1, 3});
    grid.at(2, 1) = automation::Value(u"corner");
    desk::ItemData inner = item_with_subject(u"inner");
    inner.attachments.push_back(file_attachment(std::string("\0\xFF binary", 9)));

    desk::ItemData item;
    item.message_class = u"IPM.Contact.Person";
    item.fields = {
        {u"Empty", automation::Value()},
        {u"Null", automation::Null{}},
        {u"Missing", automation::Missing{}},
        {u"True", true},
        {u"False", false},
        {u"Small", std::int32_t{-1}},
        {u"Lowest", std::numeric_limits<std::int32_t>::min()},
        {u"Highest", std::numeric_limits<std::int32_t>::max()},
        {u"Number", -0.1},
        {u"Huge", std::numeric_limits<double>::infinity()},
        {u"Date", automation::Date{46084.385}},
        {u"Nothing", u""},
        {u"Latin", u"caf\u00E9"},
        {u"Wide", u"\u0416\u4E2D\xD800 lone, \xFEFF mark"},
        {u"Mark first", u"\xFEFF"},
        {u"Zero within", automation::Text(u"a\0b", 3)},
        {u"Array", automation::Array::of(
                       {automation::Value(u"x"), automation::Value(true), automation::Array::of({}), 1.5})},
        {u"Grid", std::move(grid)},
    };
    item.user_properties = {
        {u"Account Name", 1, u"Acme"}, {u"Amount", 3, 12.5}, {u"Never set", 5, automation::Value()}};
    item.recipients = {{u"Ann", u"/o=Example/cn=ann", u"EX", u"ann@one.example", 2, false}, {}};
    desk::AttachmentData embedded;
    embedded.display_name = u"inner";
    embedded.type = 5;
    embedded.position = -1;
    embedded.item = std::make_shared<const desk::ItemData>(std::move(inner));
    item.attachments = {file_attachment("plain"), embedded, {}};
    return item;
}

}  // namespace store_tests
