#include "core/session.h"

namespace sm {

}   // namespace sm
