#include "Platform/Common/SqlitePreferences.h"
