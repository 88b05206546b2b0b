#include "addin/ground/session.h"

#include "addin/ground/status_windows.h"

namespace addin {

Session::Session(host::Desktop& platform, forms::Engine& form_engine)
    : desktop(platform), engine(form_engine) {
    SearchForm.made_by([this] { return std::make_shared<addin::SearchForm>(engine); });
}

}  // namespace addin
