#include "addin/connect/rooms.h"

#include "addin/connect/connect.h"
#include "addin/searchpanel/panels.h"

namespace addin {

Rooms::Rooms(host::Desktop& desktop, forms::Engine& engine)
    : trace(addin::trace::Trace::switched_on(desktop, engine)),
      session(trace ? trace->desktop() : desktop, trace ? trace->engine() : engine,
              trace ? &trace->observer() : nullptr),
      replicas(session),
      createnote(session),
      searchpanel(session, createnote.LastSortColumn),
      quickview(createnote, searchpanel),
      commands(createnote, quickview, [this] { std::make_shared<Connect>(*this)->StopAddIn(); }) {}

Rooms::~Rooms() { searchpanel::unload_panels(searchpanel); }

}  // namespace addin
