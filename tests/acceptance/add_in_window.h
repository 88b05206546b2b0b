// A window of the add-in as a person has it before himself, with the list that it shows.
#pragma once

#include "tests/acceptance/bars.h"
#include "tests/acceptance/people.h"

namespace acceptance {

class AddInWindow {
  public:
    bool is_open() const;
    bool closes() const;  ///< waits until it has gone

    host::Object window() const;
    host::Object control(host::TextView name) const;

    std::string text(host::TextView name) const;
    bool is_chosen(host::TextView toggle) const;
    bool is_enabled(host::TextView name) const;

    void click(host::TextView name) const;
    void type(host::TextView name, host::TextView text) const;
    /// Chooses an entry of a drop-down list; fails the test if there is none such.
    void choose(host::TextView list, host::TextView entry) const;
    Lines entries(host::TextView list) const;

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
    AddInWindow(World& world, host::TextView caption, host::TextView list, int columns)
        : world_(world), caption_(caption), list_(list), columns_(columns) {}
    ~AddInWindow() = default;
    AddInWindow(const AddInWindow&) = delete;
    AddInWindow& operator=(const AddInWindow&) = delete;

    World& world_;

  private:
    host::TextView caption_, list_;
    int columns_;
};

}  // namespace acceptance
