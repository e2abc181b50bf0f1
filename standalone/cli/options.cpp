#include "standalone/cli/options.h"
