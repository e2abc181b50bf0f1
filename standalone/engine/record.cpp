#include "standalone/engine/record.h"
