// A combo box or drop-down list of a real window.
#pragma once

#include "windows/forms/form_control.h"

namespace windows {

class FormChoice final : public FormControl, private addin::forms::Choice {
  public:
    FormChoice(FormWindow& form, const addin::forms::ControlRow& row, int id);

    host::Text text() const override;
    void text(host::TextView text) override;
    addin::forms::Choice& choice() override { return *this; }
    void on_command(WORD code) override;

  private:
    void clear() override;
    void add(host::TextView entry) override;
    int count() const override;
    host::Text entry(int index) const override;
    int chosen() const override;
    void choose(int index) override;

    int current() const;  ///< what is marked in the open entries

    /// The system tells of one choice by up to two codes, in one stroke. This is the first of them.
    struct Told {
        WORD code = 0;
        int index = 0;
        LONG time = 0;
        bool operator==(const Told&) const = default;
    };
    Told told_;
};

}  // namespace windows
