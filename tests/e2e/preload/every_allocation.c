/* SPDX-License-Identifier: LicenseRef-Proprietary */
/* Runs the program again and again, each time in a new process, with another allocation failing:
 * first its first, then its second, until a run makes fewer.
 *
 *   ALLOCATIONS_REPORT  file that gets what became of each run (below)
 *   ALLOCATIONS_INPUT   file that is standard input of each run
 *   ALLOCATIONS_FAIL    once: that allocation fails; from: all after it do, too
 *   ALLOCATIONS_COUNTED main: from the first of main() on; marked: while the program says so, by
 *                       asking the environment for ALLOCATIONS_BEGIN and ALLOCATIONS_END
 *   ALLOCATIONS_STRIDE  how far apart those are that fail (1 without it)
 *
 * A run is a line of numbers in the report: the allocation that failed; how many were made; which
 * function's failed (a letter: m, c or r; - for none); the exit status, or minus the signal; the
 * bytes of standard output and of standard error; how many blocks main() left behind, -1 where it
 * did not return; and their sizes. Behind it stand the two outputs. */
#define _GNU_SOURCE
#include <dlfcn.h>
#include <errno.h>
#include <fcntl.h>
#include <stddef.h>
#include <stdint.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

/* The C library's own, under the names by which such a library as this one reaches them. */
void *__libc_malloc(size_t size);
void *__libc_calloc(size_t count, size_t size);
void *__libc_realloc(void *block, size_t size);
void *__libc_memalign(size_t alignment, size_t size);
void __libc_free(void *block);

typedef int Main(int count, char **arguments, char **variables);
typedef int Start(Main *program, int count, char **arguments, void (*init)(void),
                  void (*fini)(void), void (*loaderFini)(void), void *stackEnd);
int __libc_start_main(Main *program, int count, char **arguments, void (*init)(void),
                      void (*fini)(void), void (*loaderFini)(void), void *stackEnd);

enum {
    PLACES = 1 << 16, /* for blocks; a power of two */
    LEFT = 1000,      /* blocks that a run may leave behind */
    LONGEST_RUN = 60, /* seconds */
    LAST = 100000     /* no run makes as many allocations */
};

static struct Block {
    void *block;
    size_t size;
    int counted; /* whether main() made it */
} blocks[PLACES];

/* Of the run; its process and the one that waits for it share them. */
static struct Run {
    long made;
    char failed;
    long left;
    size_t sizes[LEFT];
} * run;

static int inMain;
static int counting;
static long failing;
static int failsFromThere;
static Main *realMain;

static __attribute__((noreturn)) void die(const char *why)
{
    if (write(STDERR_FILENO, why, strlen(why)) < 0) {
        _exit(3);
    }
    abort();
}

static struct Block *find(const void *block, const void *wanted)
{
    size_t place = (uintptr_t)block / 8 * 2654435761U % PLACES;
    for (int i = 0; i < PLACES; ++i, place = (place + 1) % PLACES) {
        if (blocks[place].block == wanted) {
            return &blocks[place];
        }
        if (wanted != NULL && blocks[place].block == NULL) {
            return NULL;
        }
    }
    return NULL;
}

/* What stands in a place whose block was freed: the search goes on behind it. */
static char freed;

static void *keep(void *block, size_t size)
{
    if (block == NULL) {
        return NULL;
    }
    struct Block *place = find(block, &freed);
    if (place == NULL) {
        place = find(block, NULL);
    }
    if (place == NULL) {
        die("every_allocation: too many blocks\n");
    }
    *place = (struct Block){block, size, inMain};
    return block;
}

static void forget(void *block)
{
    struct Block *place = find(block, block);
    if (place == NULL) {
        die("every_allocation: freed what is no block\n");
    }
    place->block = &freed;
}

static int fails(char function)
{
    if (!counting) {
        return 0;
    }
    ++run->made;
    if (run->made != failing && !(failsFromThere && run->made > failing)) {
        return 0;
    }
    if (run->failed == '-') {
        run->failed = function;
    }
    errno = ENOMEM;
    return 1;
}

void *malloc(size_t size)
{
    return fails('m') ? NULL : keep(__libc_malloc(size), size);
}

void *calloc(size_t count, size_t size)
{
    return fails('c') ? NULL : keep(__libc_calloc(count, size), count * size);
}

void *realloc(void *block, size_t size)
{
    if (fails('r')) {
        return NULL;
    }
    if (block != NULL) {
        forget(block);
    }
    return keep(__libc_realloc(block, size), size);
}

void *memalign(size_t alignment, size_t size)
{
    return fails('m') ? NULL : keep(__libc_memalign(alignment, size), size);
}

void *aligned_alloc(size_t alignment, size_t size)
{
    return memalign(alignment, size);
}

int posix_memalign(void **block, size_t alignment, size_t size)
{
    void *const made = memalign(alignment, size);
    if (made == NULL) {
        return ENOMEM;
    }
    *block = made;
    return 0;
}

void free(void *block)
{
    if (block != NULL) {
        forget(block);
        __libc_free(block);
    }
}

static char *variable(const char *name)
{
    const size_t length = strlen(name);
    for (char **entry = environ; entry != NULL && *entry != NULL; ++entry) {
        if (strncmp(*entry, name, length) == 0 && (*entry)[length] == '=') {
            return *entry + length + 1;
        }
    }
    return NULL;
}

static int says(const char *name, const char *value)
{
    const char *said = variable(name);
    return said != NULL && strcmp(said, value) == 0;
}

char *getenv(const char *name)
{
    if (says("ALLOCATIONS_COUNTED", "marked")) {
        if (strcmp(name, "ALLOCATIONS_BEGIN") == 0) {
            counting = inMain;
        } else if (strcmp(name, "ALLOCATIONS_END") == 0) {
            counting = 0;
        }
    }
    return variable(name);
}

static int openOrDie(const char *name, int flags)
{
    const int file = name != NULL ? open(name, flags, 0600) : -1;
    if (file < 0) {
        die("every_allocation: a file is missing\n");
    }
    return file;
}

static int newFile(void)
{
    const int file = memfd_create("output", 0);
    if (file < 0) {
        die("every_allocation: no file for the output\n");
    }
    return file;
}

static int runChild(int count, char **arguments, char **variables, int out, int err)
{
    alarm(LONGEST_RUN);
    dup2(openOrDie(variable("ALLOCATIONS_INPUT"), O_RDONLY), STDIN_FILENO);
    dup2(out, STDOUT_FILENO);
    dup2(err, STDERR_FILENO);
    inMain = 1;
    counting = says("ALLOCATIONS_COUNTED", "main");
    const int status = realMain(count, arguments, variables);
    counting = 0;
    inMain = 0;
    run->left = 0;
    for (int i = 0; i < PLACES; ++i) {
        if (blocks[i].block != NULL && blocks[i].block != &freed && blocks[i].counted) {
            if (run->left == LEFT) {
                die("every_allocation: too many blocks are left behind\n");
            }
            run->sizes[run->left++] = blocks[i].size;
        }
    }
    return status;
}

static void copy(int from, int to)
{
    char bytes[4096];
    lseek(from, 0, SEEK_SET);
    for (ssize_t read_ = 0; (read_ = read(from, bytes, sizeof bytes)) > 0;) {
        if (write(to, bytes, (size_t)read_) != read_) {
            die("every_allocation: the report cannot be written\n");
        }
    }
    close(from);
}

/* Returns whether that many allocations were made, so that one failed. In the run's own process it
 * returns as well: then *status is main()'s. */
static int runOnce(int count, char **arguments, char **variables, int report, int *isChild,
                   int *status)
{
    *run = (struct Run){.failed = '-', .left = -1};
    const int out = newFile();
    const int err = newFile();
    const pid_t child = fork();
    if (child < 0) {
        die("every_allocation: no new process\n");
    }
    if (child == 0) {
        *isChild = 1;
        *status = runChild(count, arguments, variables, out, err);
        return 0;
    }
    int ended = 0;
    if (waitpid(child, &ended, 0) != child) {
        die("every_allocation: the process is lost\n");
    }
    dprintf(report, "%ld %ld %c %d %ld %ld %ld", failing, run->made, run->failed,
            WIFEXITED(ended) ? WEXITSTATUS(ended) : -WTERMSIG(ended), (long)lseek(out, 0, SEEK_END),
            (long)lseek(err, 0, SEEK_END), run->left);
    for (long i = 0; i < run->left; ++i) {
        dprintf(report, " %zu", run->sizes[i]);
    }
    dprintf(report, "\n");
    copy(out, report);
    copy(err, report);
    return run->failed != '-';
}

static int runAll(int count, char **arguments, char **variables)
{
    const int report = openOrDie(variable("ALLOCATIONS_REPORT"), O_WRONLY | O_CREAT | O_APPEND);
    const char *stride = variable("ALLOCATIONS_STRIDE");
    const long step = stride != NULL ? strtol(stride, NULL, 10) : 1;
    failsFromThere = says("ALLOCATIONS_FAIL", "from");
    run = mmap(NULL, sizeof *run, PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
    if (run == MAP_FAILED || step < 1) {
        die("every_allocation: cannot begin\n");
    }
    int isChild = 0;
    int status = 0;
    for (failing = 1; failing < LAST; failing += step) {
        if (!runOnce(count, arguments, variables, report, &isChild, &status)) {
            return status;
        }
    }
    die("every_allocation: there is no end of allocations\n");
}

int __libc_start_main(Main *program, int count, char **arguments, void (*init)(void),
                      void (*fini)(void), void (*loaderFini)(void), void *stackEnd)
{
    void *const symbol = dlsym(RTLD_NEXT, "__libc_start_main");
    Start *start = NULL;
    memcpy(&start, &symbol, sizeof start);
    realMain = program;
    return start(runAll, count, arguments, init, fini, loaderFini, stackEnd);
}
