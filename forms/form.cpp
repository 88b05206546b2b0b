#include "forms/form.h"

#include "automation/failure.h"

namespace forms {

View& Form::view() {
    if (!view_) {
        view_ = engine_.make(table_, weak_from_this());
        ++loading_;
        on_load();
        if (!view_)
            throw automation::Failure(automation::result::object_deleted, u"The window ended in its load.");
    }
    return *view_;
}

void Form::hide() {
    if (view_) view_->hide();
}

void Form::unload() {
    if (!view_) return;
    const std::shared_ptr<Form> alive = shared_from_this();
    on_unload();
    const std::unique_ptr<View> going = std::move(view_);  // its end may come back here
}

}  // namespace forms
