// Settings for a program built with the address or the thread sanitizer: a request that no machine can meet gives null,
// as it does without the sanitizer, instead of ending the program. Without a sanitizer nobody calls these functions.

extern "C" const char *__asan_default_options() { return "allocator_may_return_null=1"; }
extern "C" const char *__tsan_default_options() { return "allocator_may_return_null=1"; }
