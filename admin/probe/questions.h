// The questions about a host, by subject, in the order in which they are asked.
#pragma once

#include <span>

#include "admin/probe/probed.h"

namespace admin {

struct Subject {
    const char* name;
    std::span<const ProbeQuestion> questions;
};

std::span<const ProbeQuestion> filter_questions();
std::span<const ProbeQuestion> item_questions();
std::span<const ProbeQuestion> collection_questions();
std::span<const ProbeQuestion> class_questions();
std::span<const ProbeQuestion> host_questions();
std::span<const ProbeQuestion> event_questions();

/// All subjects.
std::span<const Subject> subjects();

}  // namespace admin
