// Included ahead of every source of what is installed: the C library checks buffers wherever the
// compiler optimises. A level that the compiler or its flags bring is kept unless it is lower.
#if defined(__OPTIMIZE__) && _FORTIFY_SOURCE < 2
#undef _FORTIFY_SOURCE
#define _FORTIFY_SOURCE 2
#endif
