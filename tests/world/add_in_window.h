// A window of the add-in as a person has it before himself, with the list that it shows.
#pragma once

#include "tests/world/bars.h"
#include "tests/world/people.h"

namespace acceptance {

class AddInWindow {
  public:
    bool is_open() const;
    bool closes() const;  ///< waits until it has gone

    automation::Object window() const;
    automation::Object control(automation::TextView name) const;

    std::string text(automation::TextView name) const;
    bool is_chosen(automation::TextView toggle) const;
    bool is_enabled(automation::TextView name) const;

    void click(automation::TextView name) const;
    void type(automation::TextView name, automation::TextView text) const;
    /// Chooses an entry of a drop-down list; fails the test if there is none such.
    void choose(automation::TextView list, automation::TextView entry) const;
    Lines entries(automation::TextView list) const;

    // its list

    std::int32_t count() const;
    std::string cell(std::int32_t row, int column) const;  ///< both from 1
    Lines column(int number) const;
    Lines rows() const;  ///< each as "cell|cell", without the entry id and without empty cells at the end
    Lines headings() const;
    std::vector<std::int32_t> marks() const;
    std::int32_t width(int column) const;
    std::int32_t selected() const;
    void select(std::int32_t row) const;
    void click_column(int number) const;
    void double_click() const;

  protected:
    /// Of the list's columns the last one holds the entry id.
    AddInWindow(World& world, automation::TextView caption, automation::TextView list, int columns)
        : world_(world), caption_(caption), list_(list), columns_(columns) {}
    ~AddInWindow() = default;
    AddInWindow(const AddInWindow&) = delete;
    AddInWindow& operator=(const AddInWindow&) = delete;

    World& world_;

  private:
    automation::TextView caption_, list_;
    int columns_;
};

}  // namespace acceptance
