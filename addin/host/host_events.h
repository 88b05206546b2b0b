// The event interfaces of Outlook and Office that the add-in listens to. Ids: the published type libraries.
#pragma once

#include "automation/events.h"

namespace host::events {

using namespace automation;  // what the faces are written in

inline constexpr std::uint32_t second_out = 1U << 1;

inline constexpr Event application_events[] = {{u"ItemSend", 0xF002, second_out}, {u"Quit", 0xF007}};
inline constexpr EventInterface application{
    "ApplicationEvents", guid("{0006304E-0000-0000-C000-000000000046}"), application_events};

inline constexpr Event explorers_events[] = {{u"NewExplorer", 0xF001}};
inline constexpr EventInterface explorers{"ExplorersEvents", guid("{00063078-0000-0000-C000-000000000046}"),
                                          explorers_events};

inline constexpr Event explorer_events[] = {
    {u"Activate", 0xF001},   {u"FolderSwitch", 0xF002},    {u"BeforeFolderSwitch", 0xF003, second_out},
    {u"Deactivate", 0xF006}, {u"SelectionChange", 0xF007}, {u"Close", 0xF008}};
inline constexpr EventInterface explorer{"ExplorerEvents", guid("{0006304F-0000-0000-C000-000000000046}"),
                                         explorer_events};

inline constexpr Event inspectors_events[] = {{u"NewInspector", 0xF001}};
inline constexpr EventInterface inspectors{"InspectorsEvents", guid("{00063079-0000-0000-C000-000000000046}"),
                                           inspectors_events};

inline constexpr Event inspector_events[] = {
    {u"Activate", 0xF001}, {u"Deactivate", 0xF006}, {u"Close", 0xF008}};
inline constexpr EventInterface inspector{"InspectorEvents", guid("{0006307D-0000-0000-C000-000000000046}"),
                                          inspector_events};

inline constexpr Event items_events[] = {
    {u"ItemAdd", 0xF001}, {u"ItemChange", 0xF002}, {u"ItemRemove", 0xF003}};
inline constexpr EventInterface items{"ItemsEvents", guid("{00063077-0000-0000-C000-000000000046}"),
                                      items_events};

inline constexpr Event command_bars_events[] = {{u"OnUpdate", 1}};
inline constexpr EventInterface command_bars{
    "_CommandBarsEvents", guid("{000C0352-0000-0000-C000-000000000046}"), command_bars_events};

inline constexpr Event button_events[] = {{u"Click", 1, second_out}};
inline constexpr EventInterface button{"_CommandBarButtonEvents",
                                       guid("{000C0351-0000-0000-C000-000000000046}"), button_events};

inline constexpr const EventInterface* all[] = {&application, &explorers, &explorer,     &inspectors,
                                                &inspector,   &items,     &command_bars, &button};

}  // namespace host::events
