#include "desk/windows/first_page.h"

#include "forms/control_name.h"
#include "forms/pictures.h"

namespace desk {

using automation::TextView;
using forms::ControlKind;
using forms::ControlRow;

namespace {

constexpr std::uint64_t time_between_looks = 1000;  // milliseconds

constexpr forms::Point box_frame[] = {{2, 2}, {14, 2}, {14, 14}, {2, 14}};
constexpr forms::Point box_inside[] = {{3, 3}, {13, 3}, {13, 13}, {3, 13}};
constexpr forms::Point box_tick[] = {{4, 8}, {6, 7}, {7, 9}, {11, 4}, {12, 5}, {7, 12}};
constexpr forms::Color tick_green{20, 120, 50};
constexpr forms::Shape open_shapes[] = {{forms::steel, box_frame}, {forms::white, box_inside}};
constexpr forms::Shape done_shapes[] = {
    {forms::steel, box_frame}, {forms::white, box_inside}, {tick_green, box_tick}};
constexpr forms::Picture open_box{16, open_shapes}, done_box{16, done_shapes};
constexpr forms::Font bold_title{.bold = true};

constexpr TextView close_button = u"cmdClose", stays_away_box = u"chkAway";
constexpr int page_margin = 180, first_top = 1260, step_height = 750, text_left = 600, text_width = 8700,
              page_width = text_left + text_width + page_margin, line_height = 240;
constexpr int steps_end = first_top + step_height * static_cast<int>(first_step_count);
constexpr int parts_of_step = 4, parts_around = 4;

/// The names of a step's controls: a letter for what it is, one for the step.
struct PartNames {
    char16_t open[2], done[2], title[2], what[2];
};
constexpr auto part_names = [] {
    std::array<PartNames, first_step_count> all{};
    for (std::size_t i = 0; i < all.size(); ++i) {
        const auto letter = static_cast<char16_t>(u'0' + i);
        all.at(i) = {{u'o', letter}, {u'd', letter}, {u't', letter}, {u'w', letter}};
    }
    return all;
}();
constexpr TextView name_of(const char16_t (&name)[2]) { return {name, 2}; }

const auto& page_controls() {
    static const auto table = [] {
        std::array<ControlRow, parts_of_step * first_step_count + parts_around> rows{};
        auto* next = rows.data();
        *next++ = {.kind = ControlKind::label,
                   .name = u"lblHead",
                   .text = u"Try this with the sample company. The mails are in your Inbox.",
                   .place = {page_margin, 150, page_width - 2 * page_margin, line_height},
                   .font = &bold_title};
        *next++ = {
            .kind = ControlKind::label,
            .name = u"lblAsked",
            .text =
                u"Tarnwell follows what you select. With a mail of somebody it doesn't know it asks "
                u"\"... NOT FOUND! Would you like to create an Account/Contact\": that is step 2, and No "
                u"changes nothing. Windows that it opens can be closed without harm. A step gets its mark "
                u"a moment after it was done.",
            .place = {page_margin, 420, page_width - 2 * page_margin, 3 * line_height}};
        for (std::size_t i = 0; i < first_step_count; ++i) {
            const FirstStep& step = first_steps()[i];
            const PartNames& name = part_names.at(i);
            const int top = first_top + step_height * static_cast<int>(i);
            *next++ = {.kind = ControlKind::image,
                       .name = name_of(name.open),
                       .place = {page_margin, top, line_height, line_height},
                       .picture = &open_box};
            *next++ = {.kind = ControlKind::image,
                       .name = name_of(name.done),
                       .place = {page_margin, top, line_height, line_height},
                       .visible = false,
                       .picture = &done_box};
            *next++ = {.kind = ControlKind::label,
                       .name = name_of(name.title),
                       .text = step.title,
                       .place = {text_left, top, text_width, line_height},
                       .font = &bold_title};
            *next++ = {.kind = ControlKind::label,
                       .name = name_of(name.what),
                       .text = step.what,
                       .place = {text_left, top + line_height, text_width, 2 * line_height}};
        }
        *next++ = {.kind = ControlKind::check_box,
                   .name = stays_away_box,
                   .text = u"Don't show this at the next start (Help, Try This opens it again)",
                   .place = {page_margin, steps_end + 90, 7000, 300}};
        *next++ = {.kind = ControlKind::button,
                   .name = close_button,
                   .text = u"Close",
                   .place = {page_width - page_margin - 1395, steps_end + 60, 1395, 375}};
        return rows;
    }();
    return table;
}

}  // namespace

const forms::FormTable& first_page_table() {
    static const forms::FormTable table{.name = u"FirstPage",
                                        .caption = u"Try This",
                                        .width = page_width,
                                        .height = steps_end + 600,
                                        .can_minimize = true,
                                        .default_button = close_button,
                                        .cancel_button = close_button,
                                        .first_focus = close_button,
                                        .controls = page_controls()};
    return table;
}

FirstPage::FirstPage(forms::Engine& engine, FirstStepsDone& steps, FirstPageMemory memory, bool stays_away)
    : Form(engine, first_page_table()), steps_(steps), memory_(std::move(memory)), stays_away_(stays_away) {}

void FirstPage::on_load() {
    control(stays_away_box).selected(stays_away_);
    steps_.look();
    mark();
}

void FirstPage::mark() {
    for (std::size_t i = 0; i < first_step_count; ++i) {
        control(name_of(part_names.at(i).done)).visible(steps_.done(i));
        control(name_of(part_names.at(i).open)).visible(!steps_.done(i));
    }
    memory_.keep_done(steps_.as_text());
}

void FirstPage::look(std::uint64_t milliseconds) {
    if (!loaded() || milliseconds - looked_at_ < time_between_looks) return;
    looked_at_ = milliseconds;
    if (steps_.look()) mark();
}

void FirstPage::on_click(TextView name) {
    if (name == close_button) return unload();
    if (name != stays_away_box) return;
    stays_away_ = control(stays_away_box).selected();
    memory_.keep_closed(stays_away_);
}

}  // namespace desk
