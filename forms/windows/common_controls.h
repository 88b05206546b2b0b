// The system's headers of controls, in the order that they need.
#pragma once

#include "automation/com/com_ptr.h"

#include <commctrl.h>
