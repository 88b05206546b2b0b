// What the desk makes of the names of attached files.
#include <gtest/gtest.h>

#include "desk/outlook/attached_files.h"

namespace {

using automation::Text;
using automation::TextView;

TEST(AttachedFiles, AreStoredUnderANameThatEveryFolderTakes) {
    const std::pair<Text, Text> cases[] = {
        {u"Offer.doc", u"Offer.doc"},
        {u"..\\..\\start\\Offer.doc", u"Offer.doc"},
        {u"/etc/passwd", u"passwd"},
        {u"C:Offer.doc", u"C_Offer.doc"},
        {u"Offer 3/4.doc", u"4.doc"},
        {u"Why?*|\"<>.doc", u"Why______.doc"},
        {u"line\r\nbreak.txt", u"line__break.txt"},
        {u"Offer.doc. . ", u"Offer.doc"},
        {u"", u"attachment"},
        {u"...", u"attachment"},
        {u"nul.txt", u"_nul.txt"},
        {u"COM1", u"_COM1"},
        {u"Common.txt", u"Common.txt"},
        {Text(300, u'x') + u".doc", Text(116, u'x') + u".doc"},
        {u"x." + Text(300, u'y'), u"x." + Text(118, u'y')},
    };
    for (const auto& [name, stored] : cases) {
        EXPECT_EQ(desk::storable_name(name), stored) << automation::to_utf8(name);
    }
}

TEST(AttachedFiles, HaveANameAndAttachedItemsTheirSubject) {
    struct Case {
        Text file_name, display_name;
        bool is_item;
        Text stored;
    };
    const Case cases[] = {{u"Offer.doc", u"The offer", false, u"Offer.doc"},
                          {u"", u"Offer.doc", false, u"Offer.doc"},
                          {u"", u"", false, u"attachment"},
                          {u"", u"Offer 3/4", true, u"Offer 3_4.msg"},
                          {u"x.msg", u"RE: Offer", true, u"RE_ Offer.msg"},
                          {u"", u"", true, u"attachment.msg"}};
    for (const Case& one : cases) {
        desk::AttachmentData attachment;
        attachment.file_name = one.file_name;
        attachment.display_name = one.display_name;
        if (one.is_item) attachment.item = std::make_shared<desk::ItemData>();
        EXPECT_EQ(desk::stored_name(attachment), one.stored) << automation::to_utf8(one.stored);
    }
}

TEST(AttachedFiles, AreToldFromPrograms) {
    const std::pair<TextView, bool> cases[] = {
        {u"Offer.doc", false},    {u"exe", false},      {u"Offer", false},        {u"Offer.exe.txt", false},
        {u"Offer.exe", true},     {u"Offer.EXE", true}, {u"Offer.doc.exe", true}, {u"Offer.exe. ", true},
        {u"Offer.txt.lnk", true}, {u"Offer.vbs", true}, {u"..\\Offer.ps1", true}, {u"Offer.url", true},
    };
    for (const auto& [name, runs] : cases)
        EXPECT_EQ(desk::is_program(name), runs) << automation::to_utf8(name);
}

}  // namespace
