#include "witness.h"

// Nearly, but factories are called "create".
extern "C" VOND_HOST_API int created() { return 0; }
