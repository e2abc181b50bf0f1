#include "standalone/cli/output.h"
