// Fontconfig keeps its configuration, read when Qt first lays out text, until the process ends and
// never frees it (Qt does not call FcFini). LeakSanitizer, in the sanitize build, asks the program
// for leaks to pass over through this function; in other builds nobody calls it.
extern "C" const char* __lsan_default_suppressions() {
    return "leak:libfontconfig.so\n";
}
