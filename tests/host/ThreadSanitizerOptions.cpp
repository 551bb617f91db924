// The misuse of a mutex is what some tests here are about, so its report would be no finding.
extern "C" const char* __tsan_default_options();
extern "C" const char* __tsan_default_options() { return "report_mutex_bugs=0"; }
