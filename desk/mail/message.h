// A mail as it came in, read from its Internet form.
#pragma once

#include <chrono>

#include <string>
#include <string_view>

#include "desk/store/item_data.h"

namespace desk::mail {

/// The JSON in which the reader, a program of its own, hands a mail to the desk:
///
///   {"item": {"class": "IPM.Note",
///             "fields": {"Subject": "...", "SentOn": {"date": 46000.25}, "UnRead": true, ...},
///             "recipients":
///                 [{"name": "...", "address": "...", "type": "SMTP", "smtp": "...", "kind": 1}, ...],
///             "attachments":
///                 [{"display": "...", "file": "...", "position": 0, "base64": "..."},
///                  {"display": "...", "item": {...}}, ...]}}
///   {"error": "one clear sentence"}
///
/// An item may also have "properties": [{"name": "...", "type": 1, "value": ...}, ...], and a recipient
/// "resolved": false.
///
/// Fields: "Subject", "Body", "HTMLBody", "To", "CC", "BCC", "SenderName", "SenderEmailAddress" (native),
/// "SenderEmailType", "SenderSmtpAddress", "SentOn", "ReceivedTime", "CreationTime", "Importance",
/// "Sensitivity", "UnRead", "Sent", "InternetMessageId", "InternetHeaders", "ConversationTopic",
/// "ReplyRecipientNames". Dates are local time.
std::string to_json(const ItemData& item);
std::string error_to_json(std::string_view sentence);

/// The item of such JSON. Throws `automation::Failure`, whose text is the sentence, for an error or for text
/// that is no such JSON.
ItemData from_json(std::string_view json);

/// The longest answer that the reader gives, in bytes; a mail of 50 MB fits in.
inline constexpr std::size_t largest_answer = 64U * 1024 * 1024;

/// A file in the folder of requests of which the reader keeps a lock as long as it lives.
inline constexpr std::string_view life_sign = "reader.lock";

/// How long the reader of mail files waits for the next one, when the desk has started it.
inline constexpr std::chrono::seconds longest_idle_time{10};

}  // namespace desk::mail
