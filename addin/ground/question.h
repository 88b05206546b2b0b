// Questions to the user.
#pragma once

#include "addin/ground/product.h"
#include "addin/host/desktop.h"

namespace addin {

/// Asks with the buttons Yes and No; whether the answer is Yes.
inline bool asks(host::Desktop& desktop, automation::TextView question) {
    return desktop.message_box(question, product_title, host::box::yes_no) == host::box::answer_yes;
}

}  // namespace addin
