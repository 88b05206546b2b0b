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
    void on_posted() override;

  private:
    void clear() override;
    void add(host::TextView entry) override;
    int count() const override;
    host::Text entry(int index) const override;
    int chosen() const override;
    void choose(int index) override;

    int current() const;  ///< what is marked in the open entries

    void take_back();

    struct Chosen {
        int index = -1;
        host::Text text;
    };
    std::optional<Chosen> before_;  ///< what was chosen when the list was opened, as long as it is open
    bool click_posted_ = false;
};

}  // namespace windows
