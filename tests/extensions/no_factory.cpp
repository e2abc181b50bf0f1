// A library that is no extension: it lacks the factory.
extern "C" __attribute__((visibility("default"))) int created;
int created = 0;
