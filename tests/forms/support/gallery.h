// A window with every kind of control, and one that has keys for its buttons.
#pragma once

#include <string>
#include <vector>

#include "forms/form.h"

namespace forms_test {

extern const forms::FormTable gallery, with_keys;
inline constexpr automation::TextView gallery_caption = u"The Gallery", with_keys_caption = u"With Keys";

/// Writes its events down, and does what it was told to do at one of them.
class Noted : public forms::Form {
  public:
    using Form::Form;
    std::vector<std::string> told;
    std::function<void(const std::string&)> at;

  private:
    void note(const std::string& event);

    void on_load() override { note("load"); }
    void on_unload() override { note("unload"); }
    void on_activate() override { note("activate"); }
    void on_focus() override { note("focus"); }
    void on_resize() override { note("resize"); }
    void on_character(char16_t character) override { note("character " + std::to_string(character)); }
    void on_close() override;
    void on_click(automation::TextView name) override;
    void on_double_click(automation::TextView name) override;
    void on_change(automation::TextView name) override;
    void on_key_press(automation::TextView name, char16_t character) override;
    void on_column_click(automation::TextView name, int column) override;
    void on_drop(automation::TextView name, int x, int y) override;
};

}  // namespace forms_test
