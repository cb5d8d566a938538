#include "core/library_state.h"

namespace vmc {

LibraryState state;

}  // namespace vmc
