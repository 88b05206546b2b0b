// The questions about a host, by subject, in the order in which they are asked.
#pragma once

#include <span>

#include "admin/probe/probed.h"

namespace admin {

struct Subject {
    const char* name;
    std::span<const Question> questions;
};

std::span<const Question> filter_questions();
std::span<const Question> item_questions();
std::span<const Question> collection_questions();
std::span<const Question> class_questions();
std::span<const Question> host_questions();

/// All subjects.
std::span<const Subject> subjects();

}  // namespace admin
