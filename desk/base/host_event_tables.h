// The events that the desk sends, as the published type libraries number them.
#pragma once

#include <algorithm>
#include <array>

#include "desk/base/events.h"

namespace desk::events {

using automation::Event;
using automation::EventInterface;

inline constexpr std::uint32_t first_out = 1U << 0, second_out = 1U << 1, third_out = 1U << 2;

/// The events of a later interface: those of the one before it, and its own.
template <std::size_t earlier_count, std::size_t own_count>
constexpr std::array<Event, earlier_count + own_count> followed_by(const Event (&earlier)[earlier_count],
                                                                   const std::array<Event, own_count>& own) {
    std::array<Event, earlier_count + own_count> all{};
    std::ranges::copy(own, std::ranges::copy(earlier, all.begin()).out);
    return all;
}

inline constexpr Event application_events[] = {
    {u"ItemSend", 0xF002, second_out}, {u"NewMail", 0xF003}, {u"Reminder", 0xF004},
    {u"OptionsPagesAdd", 0xF005},      {u"Startup", 0xF006}, {u"Quit", 0xF007}};
inline constexpr EventInterface application_9{
    "ApplicationEvents", automation::guid("{0006304E-0000-0000-C000-000000000046}"), application_events};
inline constexpr EventInterface application_10{
    "ApplicationEvents_10", automation::guid("{0006300E-0000-0000-C000-000000000046}"), application_events};
inline constexpr auto application_11_events =
    followed_by(application_events, std::to_array<Event>({{u"NewMailEx", 0xFAB5}, {u"ItemLoad", 0xFBA7}}));
inline constexpr EventInterface application_11{"ApplicationEvents_11",
                                               automation::guid("{0006302C-0000-0000-C000-000000000046}"),
                                               application_11_events};
inline constexpr const EventInterface* application[] = {&application_11, &application_10, &application_9};

inline constexpr Event explorers_events[] = {{u"NewExplorer", 0xF001}};
inline constexpr EventInterface explorers_interface{
    "ExplorersEvents", automation::guid("{00063078-0000-0000-C000-000000000046}"), explorers_events};
inline constexpr const EventInterface* explorers[] = {&explorers_interface};

inline constexpr Event explorer_events[] = {{u"Activate", 0xF001},
                                            {u"FolderSwitch", 0xF002},
                                            {u"BeforeFolderSwitch", 0xF003, second_out},
                                            {u"ViewSwitch", 0xF004},
                                            {u"BeforeViewSwitch", 0xF005, second_out},
                                            {u"Deactivate", 0xF006},
                                            {u"SelectionChange", 0xF007},
                                            {u"Close", 0xF008}};
inline constexpr EventInterface explorer_9{
    "ExplorerEvents", automation::guid("{0006304F-0000-0000-C000-000000000046}"), explorer_events};
inline constexpr EventInterface explorer_10{
    "ExplorerEvents_10", automation::guid("{0006300F-0000-0000-C000-000000000046}"), explorer_events};
inline constexpr const EventInterface* explorer[] = {&explorer_10, &explorer_9};

inline constexpr Event inspectors_events[] = {{u"NewInspector", 0xF001}};
inline constexpr EventInterface inspectors_interface{
    "InspectorsEvents", automation::guid("{00063079-0000-0000-C000-000000000046}"), inspectors_events};
inline constexpr const EventInterface* inspectors[] = {&inspectors_interface};

inline constexpr Event inspector_events[] = {
    {u"Activate", 0xF001}, {u"Deactivate", 0xF006}, {u"Close", 0xF008}};
inline constexpr EventInterface inspector_9{
    "InspectorEvents", automation::guid("{0006307D-0000-0000-C000-000000000046}"), inspector_events};
inline constexpr EventInterface inspector_10{
    "InspectorEvents_10", automation::guid("{0006302A-0000-0000-C000-000000000046}"), inspector_events};
inline constexpr const EventInterface* inspector[] = {&inspector_10, &inspector_9};

inline constexpr Event items_events[] = {
    {u"ItemAdd", 0xF001}, {u"ItemChange", 0xF002}, {u"ItemRemove", 0xF003}};
inline constexpr EventInterface items_interface{
    "ItemsEvents", automation::guid("{00063077-0000-0000-C000-000000000046}"), items_events};
inline constexpr const EventInterface* items[] = {&items_interface};

inline constexpr Event folders_events[] = {
    {u"FolderAdd", 0xF001}, {u"FolderChange", 0xF002}, {u"FolderRemove", 0xF003}};
inline constexpr EventInterface folders_interface{
    "FoldersEvents", automation::guid("{00063076-0000-0000-C000-000000000046}"), folders_events};
inline constexpr const EventInterface* folders[] = {&folders_interface};

inline constexpr Event item_events[] = {{u"Read", 0xF001},
                                        {u"Write", 0xF002, first_out},
                                        {u"Open", 0xF003, first_out},
                                        {u"Close", 0xF004, first_out},
                                        {u"Send", 0xF005, first_out},
                                        {u"CustomPropertyChange", 0xF008},
                                        {u"PropertyChange", 0xF009},
                                        {u"BeforeCheckNames", 0xF00A, first_out},
                                        {u"AttachmentAdd", 0xF00B},
                                        {u"BeforeAttachmentSave", 0xF00D, second_out},
                                        {u"Reply", 0xF466, second_out},
                                        {u"ReplyAll", 0xF467, second_out},
                                        {u"Forward", 0xF468, second_out}};
inline constexpr auto item_10_events =
    followed_by(item_events, std::to_array<Event>({{u"BeforeDelete", 0xFA75, second_out}}));
inline constexpr EventInterface item_9{
    "ItemEvents", automation::guid("{0006303A-0000-0000-C000-000000000046}"), item_events};
inline constexpr EventInterface item_10{
    "ItemEvents_10", automation::guid("{0006302B-0000-0000-C000-000000000046}"), item_10_events};
inline constexpr const EventInterface* item[] = {&item_10, &item_9};

inline constexpr Event command_bars_events[] = {{u"OnUpdate", 1}};
inline constexpr EventInterface command_bars_interface{
    "_CommandBarsEvents", automation::guid("{000C0352-0000-0000-C000-000000000046}"), command_bars_events};
inline constexpr const EventInterface* command_bars[] = {&command_bars_interface};

inline constexpr Event button_events[] = {{u"Click", 1, second_out}};
inline constexpr EventInterface button_interface{
    "_CommandBarButtonEvents", automation::guid("{000C0351-0000-0000-C000-000000000046}"), button_events};
inline constexpr const EventInterface* button[] = {&button_interface};

}  // namespace desk::events
