#include "Models/FocusManager.h"
