// What the cases about windows start from: the gallery, shown, and who uses it.
#pragma once

#include <gtest/gtest.h>

#include "tests/forms/support/gallery.h"
#include "tests/forms/support/stage.h"

namespace forms_test {

/// The texts of a list's column, from the first row to the last.
inline std::vector<std::string> names(forms::List& list, int column = 0) {
    std::vector<std::string> texts;
    for (int row = 0; row < list.count(); ++row) texts.push_back(automation::to_utf8(list.text(row, column)));
    return texts;
}

struct FormsTest : testing::Test {
    std::unique_ptr<Stage> stage = make_stage();

    std::shared_ptr<Noted> shown(const forms::FormTable& table) {
        auto form = std::make_shared<Noted>(stage->engine(), table);
        form->show();
        form->told.clear();
        return form;
    }
    std::shared_ptr<Noted> form = shown(gallery);

    static Spot in_gallery(automation::TextView name) { return {gallery_caption, name}; }
    static Spot in_keys(automation::TextView name) { return {with_keys_caption, name}; }
    forms::List& list() { return form->control(u"list").list(); }

    /// What the person's deeds have raised, without the activations that come of looking elsewhere.
    static std::vector<std::string> deeds(const std::shared_ptr<Noted>& of) {
        std::vector<std::string> told = of->told;
        std::erase_if(told, [](const std::string& event) { return event == "activate" || event == "focus"; });
        return told;
    }
};

}  // namespace forms_test
