// A report list of a real window.
#pragma once

#include <optional>
#include <span>
#include <vector>

#include "forms/windows/form_control.h"

namespace windows {

/// The rows and columns of a list control.
class FormRows final : public forms::List {
  public:
    FormRows(FormWindow& form, const forms::ControlRow& row, HWND window);
    ~FormRows() override;
    FormRows(const FormRows&) = delete;
    FormRows& operator=(const FormRows&) = delete;

    int count() const override { return count_; }
    void clear() override;
    using List::add;
    int add(std::span<const automation::Text> cells) override;
    automation::Text text(int row, int column) const override;
    int text(int row, int column, automation::TextView text) override;
    int selected() const override;
    void select(int row) override;

    int columns() const override { return static_cast<int>(row_.columns.size()); }
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

    void follow_look(int former_dots_per_inch);
    void paint_again();  ///< shows what has come since `hold_painting`

    /// Between two paintings of a list that is filled, in milliseconds.
    static constexpr DWORD painting_interval = 100;

  private:
    /// The rows as they are while the system sorts them: then its own answers are not to be relied on.
    struct Snapshot {
        struct Row {
            std::intptr_t parameter;
            std::vector<automation::Text> texts;
        };
        std::vector<Row> rows;
        std::vector<int> places;  ///< by parameter
    };
    struct Comparison;
    static int CALLBACK compare_rows(LPARAM first, LPARAM second, LPARAM comparison);

    LRESULT send(UINT message, WPARAM first, LPARAM second) const;
    automation::Text read_text(int row, int column) const;
    std::intptr_t parameter(int row) const;
    void expect_row(int row) const;
    void expect_column(int column) const;
    void write_text(int row, int column, automation::TextView text);
    int place_of(automation::TextView key) const;  ///< where a row with this cell belongs in the sorted list
    bool in_order(int row) const;                  ///< between its neighbours
    int compare(automation::TextView left, automation::TextView right) const;
    void sort();
    void sort_by(const std::function<int(std::intptr_t, std::intptr_t)>& compare);
    Snapshot snapshot() const;

    /// The system paints and measures a list anew for each row that comes, which takes longer than all else.
    /// So nothing is painted for a while, until the timer's message comes that is set here.
    void hold_painting();

    FormWindow& form_;
    const forms::ControlRow& row_;
    HWND window_, header_ = nullptr;
    // What only this object changes is kept here: to ask the control takes messages, and a filled list takes
    // many.
    int count_ = 0;
    std::intptr_t made_ = 0;  ///< parameters of rows count from 1
    int order_ = 0, key_ = 0;
    bool sorted_ = false;
    bool takes_drops_ = false;
    bool holds_painting_ = false;
    std::optional<ULONGLONG> painted_;  ///< when, by the system's clock
    const Snapshot* sorting_ = nullptr;
};

class FormList final : public FormControl {
  public:
    FormList(FormWindow& form, const forms::ControlRow& row, int id);

    forms::List& list() override { return rows_; }
    void on_notify(const NMHDR& header) override;
    void on_timer() override { rows_.paint_again(); }

    void follow_look(int former_dots_per_inch) override;

  private:
    FormRows rows_;
};

}  // namespace windows
