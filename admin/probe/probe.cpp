#include "admin/probe/probe.h"

#include <algorithm>
#include <iterator>

#include "admin/probe/questions.h"

namespace admin {
namespace {

using automation::Failure;

std::string answer(const ProbeQuestion& question, Probed& probed, std::string& said) {
    try {
        return question.ask(probed);
    } catch (const Failure& failure) {
        said = sentence(failure.description());
        return "an error";
    }
}

Line asked(const ProbeQuestion& question, Probed& probed) {
    std::string said;
    const std::string answered = answer(question, probed, said);
    if (answered == question.believed) return {Line::State::ok, question.asked, answered};
    std::string told = answered + (said.empty() ? "" : " (" + said + ")") + ", not " + question.believed;
    return {Line::State::wrong, question.asked, std::move(told),
            "tell the makers of the add-in, with the host's version"};
}

}  // namespace

std::span<const Subject> subjects() {
    static const Subject all[] = {
        {"Filters", filter_questions()},         {"Items", item_questions()},
        {"Collections", collection_questions()}, {"Classes and ids", class_questions()},
        {"The host", host_questions()},          {"Events", event_questions()}};
    return all;
}

Report probe(Machine& machine) {
    host_of(machine);  // which says so if there is none
    Report report;
    try {
        Probed probed(machine);
        for (const Subject& subject : subjects()) {
            for (const ProbeQuestion& question : subject.questions)
                report.lines.push_back(asked(question, probed));
        }
        probed.remove();
    } catch (const Failure& failure) {
        throw Refusal("the folder for the questions can't be made or removed: " +
                      sentence(failure.description()) + ".");
    }
    const auto other = static_cast<std::size_t>(
        std::ranges::count_if(report.lines, [](const Line& line) { return !line.well(); }));
    report.end = other == 0
                     ? "This host answers all " + std::to_string(report.lines.size()) +
                           " questions as the add-in believes."
                     : "This host answers " + counted(other, "question") + " of " +
                           std::to_string(report.lines.size()) + " otherwise than the add-in believes.";
    return report;
}

std::string question_page() {
    std::string page =
        "# What is believed of the host\n\n"
        "The add-in relies on these answers of Outlook, and the desk gives them. `TarnwellAdmin probe` asks "
        "a host, and tells where "
        "it answers otherwise;\nthis page is what `TarnwellAdmin probe --list` prints. A belief comes from "
        "the host's public "
        "documentation, from its type library, or is only believed:\nnobody has verified it on a real "
        "host.\n";
    for (const Subject& subject : subjects()) {
        page +=
            "\n## " + std::string(subject.name) + "\n\n| Question | Answer | From |\n| --- | --- | --- |\n";
        for (const ProbeQuestion& question : subject.questions) {
            page += "| " + std::string(question.asked) + " | " + question.believed + " | " + question.source +
                    " |\n";
        }
    }
    return page;
}

}  // namespace admin
