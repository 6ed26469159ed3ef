// A setting for programs that draw text under the leak sanitizer: fontconfig's lasting patterns refer to their parts by
// distances instead of addresses, and so the parts look lost. Without a sanitizer nobody calls this function.

extern "C" const char *__lsan_default_suppressions() { return "leak:libfontconfig.so"; }
