// Mail that the user sends to an own address, alone or among others: it comes back.
#pragma once

#include <optional>

#include "desk/base/desk.h"
#include "desk/store/item_data.h"

namespace desk {

/// What arrives of a mail that was sent, `sent` being whole: what everybody gets of it, without the sender's
/// own marks and without those who stand in Bcc. Nothing if neither the user's address nor a list with the
/// user in it is among the recipients, and for what is no mail.
std::optional<ItemData> arriving_mail(Desk& desk, const ItemData& sent);

}  // namespace desk
