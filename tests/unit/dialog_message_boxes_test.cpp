// The Create Note dialog that the user closes while one of its message boxes waits, and may open again: it is
// another one then, which nothing of the first touches.
#include <utility>

#include "addin/createnote/dlg_send.h"
#include "tests/native/native_world.h"
#include "tests/world/note_dialog.h"

namespace addin_tests {
namespace {

using acceptance::Lines;
using addin::createnote::dlgSend;
using native::NativeWorld;

struct OpenedDialog {
    NativeWorld world{acceptance::WorldSetup{}};
    std::unique_ptr<acceptance::OpenedItem> mail;
    std::shared_ptr<dlgSend> dialog;

    OpenedDialog() {
        acceptance::write_targets_file(world, "[Undefined]\r\nDisplay in=Find\r\n");
        mail = std::make_unique<acceptance::OpenedItem>(world.deliver(acceptance::message()));
        mail->show();
        dialog = std::make_shared<dlgSend>(world.add_in()->rooms().createnote);
        dialog->show();
    }
    ~OpenedDialog() { dialog->unload(); }

    native::MemoryWindow* window() { return world.engine().find(u"Tarnwell Create Note"); }

    /// What the user does while the next message box waits.
    void at_message_box(std::function<void()> deed) {
        world.system().on_message_box = [deed = std::move(deed)]() mutable {
            if (const auto now = std::exchange(deed, nullptr)) now();
        };
    }
    void open_again() {
        dialog->unload();
        dialog->show();
    }
};

constexpr const char* no_definition = "Invalid List Definition Record in the Tarnwell System Folder";

TEST(DialogMessageBoxes, OfATargetWithoutDefinitionBringNoClosedWindowBack) {
    OpenedDialog opened;
    opened.at_message_box([&] { opened.dialog->unload(); });
    ASSERT_TRUE(opened.window()->control(u"Combo2").choose(0));
    EXPECT_EQ(acceptance::message_texts(opened.world), Lines{no_definition});
    EXPECT_FALSE(opened.window());
    EXPECT_EQ(opened.world.system().shown_pointer, forms::Pointer::standard);
}

TEST(DialogMessageBoxes, OfATargetWithoutDefinitionLeaveAnotherWindowsHeadings) {
    OpenedDialog opened;
    opened.world.add_in()->rooms().createnote.list_definition.ColumnName[0] = u"Of an older target";
    opened.at_message_box([&] { opened.open_again(); });
    ASSERT_TRUE(opened.window()->control(u"Combo2").choose(0));
    EXPECT_EQ(acceptance::message_texts(opened.world), Lines{no_definition});
    ASSERT_TRUE(opened.window());
    EXPECT_EQ(opened.window()->control(u"lstRecipients").list().heading(0), u"Contact Name");
    EXPECT_EQ(opened.window()->control(u"lstRecipients").list().count(), 2) << "nothing has cleared it";
}

TEST(DialogMessageBoxes, OfferingAContactLeaveAnotherWindowOpen) {
    OpenedDialog opened;
    constexpr std::int32_t yes = 6, no = 7;
    opened.world.desk().call(u"Answer", {u"Tarnwell", u"Would you like to Create an Account/Contact", yes});
    opened.world.desk().call(u"Answer", {u"Tarnwell", u"Would you like to search for an Account Name? ", no});
    opened.at_message_box([&] { opened.open_again(); });
    ASSERT_TRUE(opened.window()->control(u"cmdSend").click());
    EXPECT_EQ(acceptance::count_messages(opened.world), 2);
    EXPECT_TRUE(opened.window()) << "it isn't the one that asked";
    EXPECT_EQ(acceptance::count_in(opened.world, u"Account Contacts"), 1);
    EXPECT_EQ(acceptance::count_in(opened.world, u"Email"), 1);
}

}  // namespace
}  // namespace addin_tests
