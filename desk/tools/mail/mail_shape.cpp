#include "desk/tools/mail/mail_shape.h"

#include <algorithm>
#include <array>
#include <string>
#include <unordered_set>
#include <utility>
#include <vector>

#include "desk/mail/item_json.h"

namespace desk::mail {
namespace {

constexpr std::array<std::string_view, 6> address_fields = {"from", "sender", "reply-to", "to", "cc", "bcc"};
constexpr std::string_view blanks = " \t";

std::string lower(std::string_view text) {
    std::string low(text);
    for (char& c : low) {
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
    }
    return low;
}

std::size_t count_of(char wanted, std::string_view text) {
    return static_cast<std::size_t>(std::ranges::count(text, wanted));
}

std::string_view without_blank_end(std::string_view text) {
    return text.substr(0, text.find_last_not_of(" \t\r\n") + 1);
}

/// What separates the parts, as a Content-Type says it; empty if it doesn't.
std::string_view boundary_in(std::string_view field, const std::string& low) {
    constexpr std::string_view name = "boundary";
    const std::size_t found = low.find(name);
    if (found == std::string::npos) return {};
    field.remove_prefix(found + name.size());
    field.remove_prefix(std::min(field.find_first_not_of(blanks), field.size()));
    if (!field.starts_with('=')) return {};
    field.remove_prefix(1);
    field.remove_prefix(std::min(field.find_first_not_of(blanks), field.size()));
    if (!field.starts_with('"')) return field.substr(0, field.find_first_of("; \t\r\n"));
    field.remove_prefix(1);
    return field.substr(0, field.find('"'));
}

/// What a line ends in; nothing for the last one that is cut off.
std::string_view ending_of(std::string_view line) {
    if (!line.ends_with('\n')) return {};
    return line.ends_with("\r\n") ? "\r\n" : "\n";
}

class ShapeCheck {
  public:
    std::string run(std::string_view message) {
        even_.reserve(message.size() + 2);
        while (!message.empty()) {
            const std::size_t length = std::min(message.find('\n'), message.size() - 1) + 1;
            const std::string_view line = message.substr(0, length);
            if (read_line(line)) {
                const std::string_view before = ending_of(even_);
                even_.append(line.substr(0, line.size() - ending_of(line).size())).append(before);
            } else {
                even_.append(line);
            }
            message.remove_prefix(length);
        }
        end_field();
        return std::move(even_);
    }

  private:
    struct Multipart {
        std::string_view boundary;
        bool of_messages;  ///< its parts are messages, unless they say otherwise
    };

    /// Tells whether the line separates parts.
    bool read_line(std::string_view line) {
        if (line.starts_with("--") && separates(without_blank_end(line.substr(2)))) return true;
        if (in_header_) read_header_line(line);
        return false;
    }

    void read_header_line(std::string_view line) {
        if (line == "\n" || line == "\r\n") {
            end_header();
        } else if (blanks.find(line.front()) != std::string_view::npos && !field_.empty()) {
            field_ = {field_.data(), field_.size() + line.size()};  // the lines follow each other
        } else {
            end_field();
            field_ = line;
            // the first type counts, and the parser would take the last one
            if (has_type_ && lower(without_blank_end(line.substr(0, line.find(':')))) == "content-type")
                even_ += "X-Another-";
        }
    }

    /// Whether a line behind its two hyphens begins a part, or ends the last one.
    bool separates(std::string_view line) {
        if (known_.contains(line)) {
            leave_to(line, false);
            begin_header();
            return true;
        }
        if (!line.ends_with("--") || !known_.contains(line.substr(0, line.size() - 2))) return false;
        leave_to(line.substr(0, line.size() - 2), true);
        end_field();
        in_header_ = false;
        return true;
    }

    /// What is open inside of a multipart has ended, and the multipart as well if `it_too`.
    void leave_to(std::string_view boundary, bool it_too) {
        const auto found = std::ranges::find(open_.rbegin(), open_.rend(), boundary, &Multipart::boundary);
        if (found != open_.rend()) open_.erase(found.base() - (it_too ? 1 : 0), open_.end());
    }

    void begin_header() {
        end_field();
        if (++parts_ > most_parts) refuse("The mail has more than " + std::to_string(most_parts) + " parts.");
        in_header_ = true;
        has_type_ = false;
        message_follows_ = !open_.empty() && open_.back().of_messages;
    }

    void end_header() {
        end_field();
        in_header_ = false;
        if (message_follows_) begin_header();
        message_follows_ = false;
    }

    void end_field() {
        const std::string_view field = field_;
        field_ = {};
        header_bytes_ += field.size();
        if (header_bytes_ > most_header_bytes) refuse("The headers of the mail are larger than 2 MB.");
        const std::size_t colon = std::min(field.find(':'), field.size());
        const std::string_view written = without_blank_end(field.substr(0, colon));
        const std::string name = lower(written);
        const std::string_view value = field.substr(colon);
        if (std::ranges::find(address_fields, name) != address_fields.end()) check_addresses(written, value);
        if (name.starts_with("content-")) check_parameters(written, value);
        if (name == "content-type") read_type(value);
    }

    void check_addresses(std::string_view name, std::string_view value) {
        if (count_of(':', value) > most_colons) {
            refuse("The mail's field " + std::string(name) + " is no list of addresses: it has more than " +
                   std::to_string(most_colons) + " colons.");
        }
        addresses_ += count_of(',', value) + 1;
        if (addresses_ > most_addresses)
            refuse("The mail has more than " + std::to_string(most_addresses) + " addresses.");
    }

    static void check_parameters(std::string_view name, std::string_view value) {
        if (count_of(';', value) > most_parameters) {
            refuse("The mail's field " + std::string(name) + " has more than " +
                   std::to_string(most_parameters) + " parameters.");
        }
    }

    void read_type(std::string_view value) {
        if (has_type_) return;  // the first one counts
        has_type_ = true;
        const std::string low = lower(value);
        const std::size_t type = std::min(low.find_first_not_of(": \t\r\n"), low.size());
        message_follows_ = low.compare(type, 8, "message/") == 0;
        const std::string_view boundary = without_blank_end(boundary_in(value, low));
        if (boundary.empty()) return;
        known_.insert(boundary);
        open_.push_back({boundary, low.compare(type, 16, "multipart/digest") == 0});
        if (open_.size() > most_nested_parts) refuse("The parts of the mail are nested too deeply.");
    }

    std::string even_;  ///< the message as it is handed on
    std::vector<Multipart> open_;
    std::unordered_set<std::string_view> known_;
    std::string_view field_;  ///< under way, with its folded lines
    std::size_t parts_ = 0, header_bytes_ = 0, addresses_ = 0;
    bool in_header_ = true, has_type_ = false, message_follows_ = false;
};

}  // namespace

std::string checked_shape(std::string_view message) { return ShapeCheck().run(message); }

}  // namespace desk::mail
