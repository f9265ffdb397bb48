#include "services/texto.h"

namespace services {}
