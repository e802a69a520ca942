/* SPDX-License-Identifier: LicenseRef-Proprietary */
/* For functions of ours that stand in front of another library's of the same name. */
#ifndef TESTS_SUPPORT_NEXT_FUNCTION_H
#define TESTS_SUPPORT_NEXT_FUNCTION_H

#include <dlfcn.h>

/* The function behind ours: the C library's, or what a sanitizer or valgrind has in its place. */
#define NEXT_FUNCTION(name) (__extension__(__typeof__(&name)) dlsym(RTLD_NEXT, #name))

#endif
