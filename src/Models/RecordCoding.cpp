#include "Models/RecordCoding.h"

namespace tolvar {} // namespace tolvar
