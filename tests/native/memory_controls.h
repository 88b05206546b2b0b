// The controls of a window that is kept in memory: what the logic sees, and what a person does with them.
#pragma once

#include <functional>
#include <optional>
#include <vector>

#include "forms/view.h"

namespace native {

class MemoryWindow;

/// Comes before a call that the system may refuse, with the call's name. What it throws is the refusal; where
/// the system refuses without a word, nothing is done.
using BeforeCall = std::function<void(const char* call)>;

/// Whether a call isn't refused, for the calls of which nobody is told.
bool goes_through(const BeforeCall& before_call, const char* call);

class MemoryChoice final : public forms::Choice {
  public:
    MemoryChoice(const forms::ControlRow& row, BeforeCall before_call);

    void clear() override;
    void add(automation::TextView entry) override;
    int count() const override { return static_cast<int>(entries_.size()); }
    automation::Text entry(int index) const override;
    int chosen() const override;
    void choose(int index) override;

    const automation::Text& text() const { return text_; }
    void text(automation::TextView text);  ///< of a drop-down list: only if it is one of the entries

  private:
    BeforeCall before_call_;
    bool entries_only_;
    std::vector<automation::Text> entries_;
    automation::Text text_;
    int chosen_ = -1;
};

class MemoryList final : public forms::List {
  public:
    MemoryList(const forms::ControlRow& row, int dots_per_inch, BeforeCall before_call);

    int count() const override { return static_cast<int>(rows_.size()); }
    void clear() override;
    using List::add;
    int add(std::span<const automation::Text> cells) override;
    automation::Text text(int row, int column) const override;
    int text(int row, int column, automation::TextView text) override;
    int selected() const override;
    void select(int row) override;

    int columns() const override { return static_cast<int>(columns_.size()); }
    automation::Text heading(int column) const override;
    void heading(int column, automation::TextView text) override;
    int width(int column) const override;
    void width(int column, int twips) override;
    void header_item(int column, const forms::HeaderItem& item) override;

    int sort_order() const override { return order_; }
    void sort_order(int order) override;
    void sort_key(int column) override;
    void sorted(bool sorted) override;
    void sort_rows(const std::function<int(std::intptr_t, std::intptr_t)>& compare) override;
    int find(std::intptr_t parameter) const override;

    void extended_style(std::uint32_t mask, std::uint32_t value) override;
    forms::Hit hit(int x, int y) const override;
    void takes_drops(bool takes) override;

    // what a test looks at

    bool takes_drops() const { return takes_drops_; }
    bool sorted() const { return sorted_; }
    int sort_key() const { return key_; }
    std::uint32_t extended_style() const { return extended_style_; }
    int pixel_width(int column) const;
    const forms::HeaderItem& header_item(int column) const;  ///< as it was set last
    int mark(int column) const;  ///< the number of the picture that the heading shows, or -1

    /// A point in the middle of a row's cell; below the rows for -1. Pixels.
    struct Point {
        int x, y;
    };
    Point middle(int row, int column = 0) const;

  private:
    struct Row {
        std::intptr_t parameter;
        std::vector<automation::Text> texts;
    };
    struct Column {
        automation::Text heading;
        int pixels;
        forms::HeaderItem item;
    };

    const Row& at(int row) const;
    Column& column_at(int column);
    const Column& column_at(int column) const;
    int compare(const Row& left, const Row& right) const;
    void sort();
    int scaled(int pixels_at_96) const;

    BeforeCall before_call_;
    int dots_per_inch_;
    std::vector<Column> columns_;
    std::vector<Row> rows_;
    std::intptr_t made_ = 0;
    std::intptr_t selected_ = 0;  ///< the row's parameter; they count from 1
    int order_ = 0;
    int key_ = 0;
    bool sorted_ = false;
    bool takes_drops_ = false;
    std::uint32_t extended_style_ = 0;
};

/// Each deed of a person answers whether it could be done: the control must be there to be seen, enabled, of
/// a fitting kind, and its window not behind a modal one. The window may have ended when a deed comes back.
class MemoryControl final : public forms::Control {
  public:
    MemoryControl(MemoryWindow& window, const forms::ControlRow& row);

    automation::Text text() const override;
    void text(automation::TextView text) override;
    bool visible() const override { return visible_; }
    void visible(bool visible) override;
    bool enabled() const override { return enabled_; }
    void enabled(bool enabled) override;
    bool selected() const override { return selected_; }
    void selected(bool selected) override;
    void place(const forms::Place& place) override { place_ = place; }
    void focus() override;
    forms::List& list() override { return memory_list(); }
    forms::Choice& choice() override { return memory_choice(); }

    // what a person sees

    const forms::ControlRow& table_row() const { return row_; }
    const forms::Place& place() const { return place_; }
    MemoryList& memory_list();
    MemoryChoice& memory_choice();
    bool shown() const;      ///< it and its frame; of a window that is shown
    bool usable() const;     ///< shown, enabled, and not behind a modal window
    bool has_focus() const;  ///< of its window

    // what a person does

    bool click();                          ///< a button, link, check box or option button
    bool type(automation::TextView text);  ///< replaces the text; the text box's change comes once
    bool key(int code);                    ///< with the focus moved here first
    bool choose(int index);                ///< a combo's entry
    bool select(int row);                  ///< a click on a row of a list; -1: beside the rows
    bool double_click(int row);            ///< -1: beside the rows
    bool column_click(int column);
    bool drop(int row, int column = 0);  ///< row -1: below the rows; only where drops are taken

    bool takes_focus() const;  ///< by its kind
    bool is_text_box() const { return row_.kind == forms::ControlKind::text_box; }

    /// What a character does to the text; whether it changed it.
    bool put_character(char16_t character);

    void let_go() { selected_ = false; }  ///< another option of its frame was selected

  private:
    friend class MemoryWindow;

    bool is_pressed_by(int code) const;  ///< a virtual key, when it has the focus
    bool is_button() const;              ///< what Enter and the space bar press when it has the focus
    bool is_toggle() const;              ///< check box or option button
    void press();                        ///< inside of a deed

    MemoryWindow& window_;
    const forms::ControlRow& row_;
    automation::Text text_;
    bool visible_, enabled_, selected_;
    forms::Place place_;
    std::optional<MemoryList> list_;
    std::optional<MemoryChoice> choice_;
};

}  // namespace native
