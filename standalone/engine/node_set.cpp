#include "standalone/engine/node_set.h"
