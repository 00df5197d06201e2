#pragma once

/// All telegrams and replies of the serial path.
#include "AntwortLayouts.h"
#include "TelegrammLayout.h"
#include "TelegrammeDaten.h"
#include "TelegrammeSitzung.h"
#include "TelegrammeUnit.h"
