#include "platform/built_version.h"

namespace kestrun {

// The build gives the three numbers to this file alone.
Version BuiltVersion() { return {KESTRUN_MAJOR, KESTRUN_MINOR, KESTRUN_REVISION}; }

}  // namespace kestrun
