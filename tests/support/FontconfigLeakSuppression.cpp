// Fontconfig keeps its configuration, read when text is first laid out (by Qt in the dialog tests,
// by Poppler and cairo in the PDF tests), until the process ends and never frees it: neither
// library calls FcFini. LeakSanitizer, in the sanitize build, asks the program for leaks to pass
// over through this function; in other builds nobody calls it.
extern "C" const char* __lsan_default_suppressions() {
    return "leak:libfontconfig.so\n";
}
