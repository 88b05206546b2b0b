// The Search Panel as a person has it before himself, and the records that its searches need.
#pragma once

#include "tests/world/bars.h"
#include "tests/world/people.h"

namespace acceptance {

inline constexpr automation::TextView panel_caption = u"Tarnwell Search Panel";

/// What the panel can search for: a section of the ini file, and its two records in the "System Folder".
struct PanelTarget {
    automation::Text name = u"Contacts";
    automation::Text definition = u"Contacts by id";
    automation::Text key = u"ContactID";
    automation::Text record_class = u"IPM.Contact.Account Contact";
    automation::Text folder;  ///< its path below "Account Profiles"; empty: that folder itself
    std::string display_in = "Search Panel";
};
PanelTarget contacts_target();
PanelTarget accounts_target();
PanelTarget inquiries_target();

/// All that these targets need, and no others.
void install_panel(World& world, const std::vector<PanelTarget>& targets);
inline void install_panel(World& world) {
    install_panel(world, {accounts_target(), contacts_target(), inquiries_target()});
}

/// Has the panel search in phrases, and the system's index.
inline void search_in_phrases(World& world) { world.option(u"EnableDesktopSearch", u"1"); }

/// Saves a record of a class with these user properties to a folder.
host::outlook::Item add_record(const host::outlook::Folder& folder, automation::TextView message_class,
                               const automation::Text& subject, const Fields& properties);
/// A note of a contact, or of an account alone.
host::outlook::Item add_note(World& world, const automation::Text& subject, const Fields& properties);
/// An account with an address, as the panel shows it.
host::outlook::Item add_full_account(World& world, const automation::Text& name = u"North Mill Ltd",
                                     const automation::Text& id = u"A-100");
/// A contact of it, the same.
host::outlook::Item add_full_contact(World& world, const automation::Text& company = u"North Mill Ltd");

/// The panel from outside. When this ends, it is closed.
class SearchPanel {
  public:
    explicit SearchPanel(World& world) : world_(world) {}
    ~SearchPanel();
    SearchPanel(const SearchPanel&) = delete;
    SearchPanel& operator=(const SearchPanel&) = delete;

    // the ways in which it comes up
    void open() const;                                        ///< the default one, on nothing
    void open_new(const host::outlook::Item& item) const;     ///< `ShowItemsMenu`
    void open_second(const host::outlook::Item& item) const;  ///< `ShowItemsMenu2`
    void search_for(const host::outlook::Item& item) const;   ///< in the second one, as it is open

    bool is_open() const;
    void close() const;
    automation::Object window() const;
    automation::Object control(automation::TextView name) const;
    std::string text(automation::TextView name) const;
    Lines entries() const;
    void choose(
        automation::TextView entry) const;  ///< the search may still run, or wait, when this comes back
    bool ends() const;                      ///< waits for the end of a search
    void click(automation::TextView name) const;

    /// The header as "name|company|phone|fax|street|city|state|zip", and its ids as "account|contact".
    std::string header() const;
    std::string ids() const;

    std::int32_t count() const;
    std::string cell(std::int32_t row, int column) const;  ///< both from 1
    Lines rows() const;                                    ///< each as "folder|subject|created by"
    Lines column(int number) const;
    void select(std::int32_t row) const;
    void double_click() const;
    void click_column(int number) const;
    std::vector<std::int32_t> marks() const;
    std::vector<std::int32_t> widths() const;

  private:
    World& world_;
};

/// The picker that a search shows, by its caption; it is driven until it is gone.
class Picker {
  public:
    Picker(World& world, automation::TextView caption) : world_(world), caption_(caption) {}
    bool comes_up() const;
    void click(automation::TextView control) const;
    void highlight(std::int32_t row) const;
    bool goes() const;

  private:
    automation::Object control(automation::TextView name) const;
    World& world_;
    automation::Text caption_;
};

}  // namespace acceptance
