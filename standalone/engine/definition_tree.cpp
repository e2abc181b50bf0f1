#include "standalone/engine/definition_tree.h"
