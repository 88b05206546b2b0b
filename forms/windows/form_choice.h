// A combo box or drop-down list of a real window.
#pragma once

#include "forms/windows/form_control.h"

namespace windows {

class FormChoice final : public FormControl, private forms::Choice {
  public:
    FormChoice(FormWindow& form, const forms::ControlRow& row, int id);

    automation::Text text() const override;
    void text(automation::TextView text) override;
    forms::Choice& choice() override { return *this; }
    void on_command(WORD code) override;
    void on_posted() override;

  private:
    void clear() override;
    void add(automation::TextView entry) override;
    int count() const override;
    automation::Text entry(int index) const override;
    int chosen() const override;
    void choose(int index) override;

    int current() const;  ///< what is marked in the open entries

    void take_back();

    struct Chosen {
        int index = -1;
        automation::Text text;
    };
    std::optional<Chosen> before_;  ///< what was chosen when the list was opened, as long as it is open
    bool click_posted_ = false;
};

}  // namespace windows
