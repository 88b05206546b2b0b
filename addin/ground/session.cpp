#include "addin/ground/session.h"

#include "addin/ground/status_windows.h"

namespace addin {

Session::Session(host::Desktop& platform, forms::Engine& form_engine, StepObserver* observer)
    : desktop(platform), engine(form_engine), step_observer(observer) {
    SearchForm.made_by([this] { return std::make_shared<addin::SearchForm>(engine); });
}

}  // namespace addin
