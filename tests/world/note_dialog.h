// The Create Note dialog as a person has it before himself, and the data that its searches need.
#pragma once

#include <array>

#include "tests/world/add_in_window.h"
#include "tests/world/notes.h"

namespace acceptance {

/// The dialog from outside. It is modal: when this ends, it is closed.
class NoteDialog : public AddInWindow {
  public:
    explicit NoteDialog(World& world);
    ~NoteDialog();
    NoteDialog(const NoteDialog&) = delete;
    NoteDialog& operator=(const NoteDialog&) = delete;

    /// Opens it by the button of an item's window, or by the entry of the explorer's menu; whether it came
    /// up.
    bool open(const OpenedItem& opened);
    bool open_from_explorer();

    bool header_becomes(automation::TextView text) const;  ///< waits for a text of the status line

    /// Chooses a target and searches for a text in it.
    void search(automation::TextView target, automation::TextView text) const;

    /// Has the next "Done" box closed, and creates a note of the selected row.
    void create() const;
};

/// Tests that have the dialog open over one mail after another.
class WithNoteDialog : public Filing {
  protected:
    void TearDown() override { close_dialog(); }

    /// The dialog over a mail in its window, or over what is selected in the explorer. The one before is
    /// closed, and its mail's window too.
    NoteDialog& opened(const host::outlook::Item& item);
    NoteDialog& opened_from_explorer(const host::outlook::Item& item);
    NoteDialog& opened() { return opened(world().deliver(message())); }  ///< over a mail of Ann's
    void close_dialog();

  private:
    std::unique_ptr<OpenedItem> mail_;
    std::unique_ptr<NoteDialog> dialog_;
};

/// What the dialog's status line says at first, and after a note was made.
inline constexpr automation::TextView invitation =
    u"Highlight an entry in the list below.  Then press Create.";
inline constexpr automation::TextView no_row =
    u"You must select a valid Account/Contact name. Please use the search feature.";

inline constexpr automation::TextView accounts_path =
    u"\\\\Public Folders\\All Public Folders\\Tarnwell\\Account Profiles";
inline constexpr automation::TextView contacts_path =
    u"\\\\Public Folders\\All Public Folders\\Tarnwell\\Account Profiles\\Account Contacts";

/// A user property in the notation of a definition.
automation::Text named_field(automation::TextView property);

/// What a search is defined by: a section of the ini file and its two records in the "System Folder". As it
/// stands, it finds contacts by their names.
struct SearchTarget {
    automation::Text name = u"People";
    std::string display_in = "Find";
    automation::Text definition = u"People of accounts";
    automation::Text folder{contacts_path};
    std::array<automation::Text, 6> headings{u"Full Name", u"Company", u"Email",
                                             u"Manager",   u"Team",    u"Alignment"};
    std::array<automation::Text, 6> fields{u"&H3001001E",
                                           u"&H3A16001E",
                                           named_field(u"EmailSearchString"),
                                           named_field(u"Account Manager"),
                                           named_field(u"Team"),
                                           named_field(u"Alignment")};
    std::array<automation::Text, 6> types{u"String", u"String", u"String", u"String", u"String", u"String"};
    automation::Text key_heading = u"ContactID";
    automation::Text key_field = named_field(u"ContactID");
    automation::Text filter = u"[FullName] >= '<<mString>>' AND [FullName] < '<<UpperLimit>>'";
};

/// The file of targets, and the family told where it lies.
void write_targets_file(World& world, const std::string& bytes);

/// Records of the "System Folder".
host::outlook::Items system_items(World& world);
host::outlook::Item add_drop_down(World& world, const automation::Text& name,
                                  const automation::Text& definition);
host::outlook::Item add_definition(World& world, const SearchTarget& target);

/// All that these targets need, and no others.
void install(World& world, const std::vector<SearchTarget>& targets);

/// Saves so many opportunities, with the subjects "Mill", "Mill 001", "Mill 002" and so on, and installs the
/// target "People" that finds them by these.
void install_many_records(World& world, std::int32_t count);

/// Saves an account to "Account Profiles".
host::outlook::Item add_account(World& world, const Fields& properties, const automation::Text& subject);

/// "North Mill Ltd" with all that a contact takes from its account.
host::outlook::Item add_mill(World& world, const automation::Text& manager,
                             const automation::Text& alignment);

/// Whether a mail bears the mark of one that the user filed.
bool is_marked_by_user(const host::outlook::Item& mail);

/// The texts of the message boxes since a place.
Lines message_texts(World& world, std::int32_t from = 0);

}  // namespace acceptance
