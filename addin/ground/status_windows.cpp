#include "addin/ground/status_windows.h"

#include "addin/ground/product.h"
#include "forms/control_name.h"
#include "forms/pictures.h"

namespace addin {

using forms::ControlKind;
using forms::ControlRow;
using forms::FormTable;

namespace {

constexpr ControlRow search_form_controls[] = {
    {.kind = ControlKind::image,
     .name = u"Image1",
     .place = {120, 120, 480, 480},
     .picture = &forms::magnifier},
    // two lines of text: names of people can be long
    {.kind = ControlKind::label,
     .name = SearchForm::label,
     .text = u"Label1",
     .place = {720, 150, 5100, 450}},
};
constexpr FormTable search_form{.name = u"SearchForm",
                                .caption = product_title,
                                .width = 5940,
                                .height = 720,
                                .tool_window = true,
                                .takes_keyboard = false,
                                .controls = search_form_controls};

static_assert(forms::is_sound(search_form));

}  // namespace

const FormTable& search_form_table() { return search_form; }

}  // namespace addin
