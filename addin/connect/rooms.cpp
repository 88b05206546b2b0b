#include "addin/connect/rooms.h"

#include "addin/connect/connect.h"
#include "addin/searchpanel/panels.h"

namespace addin {

Rooms::Rooms(host::Desktop& desktop, forms::Engine& engine)
    : session(desktop, engine),
      replicas(session),
      createnote(session),
      searchpanel(session, createnote.LastSortColumn),
      quickview(createnote, searchpanel),
      commands(createnote, quickview, [this] { std::make_shared<Connect>(*this)->StopAddIn(); }) {}

Rooms::~Rooms() { searchpanel::unload_panels(searchpanel); }

}  // namespace addin
