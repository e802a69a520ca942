// SPDX-License-Identifier: LicenseRef-Proprietary
// In the place of dlopen() where the address sanitizer has one that refuses RTLD_DEEPBIND: a
// library loaded so would reach the C library's malloc() past the sanitizer's. One that is built
// with the sanitizer does not, for it needs that ahead of the C library.
#include <dlfcn.h>

extern "C" {

void *__real_dlopen(const char *file, int mode);
void *__wrap_dlopen(const char *file, int mode);

void *__wrap_dlopen(const char *file, int mode)
{
    void *const library = __real_dlopen("libc.so.6", RTLD_NOW | RTLD_NOLOAD);
    const auto open = reinterpret_cast<void *(*)(const char *, int)>(dlsym(library, "dlopen"));
    return open(file, mode);
}
}
