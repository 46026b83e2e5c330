#include "brindle/frame/utility/design_code.h"

namespace brindle {

int G_guifan = 2010;

}  // namespace brindle
