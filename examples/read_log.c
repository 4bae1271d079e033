/* Reads log files back: counts the records of each process, shows the first and the last record of each file,
 * and, with -o DIRECTORY, writes the texts of each process, in the order of the files, to DIRECTORY\<process
 * id>.txt.
 *
 *   read_log [-o DIRECTORY] FILE...
 */
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

#include "zantlog/zantlog.h"

enum { MAX_PROCESSES = 64, MAX_PATH_LENGTH = 1024 };

typedef struct Process {
    unsigned long id;
    unsigned long records;
    FILE *texts;
} Process;

static Process processes[MAX_PROCESSES];
static int processCount;
static const char *textDirectory;

static Process *findProcess(unsigned long id) {
    for (int i = 0; i < processCount; ++i) {
        if (processes[i].id == id)
            return &processes[i];
    }
    if (processCount == MAX_PROCESSES)
        return NULL;
    Process *process = &processes[processCount++];
    process->id = id;
    if (textDirectory != NULL) {
        char path[MAX_PATH_LENGTH];
        snprintf(path, sizeof path, "%s\\%lu.txt", textDirectory, id);
        process->texts = fopen(path, "wb");
    }
    return process;
}

/* Takes a length-prefixed text ("12:disk failure,") out of a record; null when it is damaged. */
static const char *takeText(const char **at, const char *end, size_t *length) {
    char *after = NULL;
    *length = strtoul(*at, &after, 10);
    if (after == *at || *after != ':' || *length > (size_t)(end - after - 1))
        return NULL;
    const char *text = after + 1;
    *at = text + *length;
    if (*at < end && **at == ',')
        ++*at;
    return text;
}

/* A record begins with eight numbers (a log set's with six); process id and thread id are the last two of
 * them, context token and text follow. */
static int countRecord(const char *record, size_t length, int numbers) {
    const char *at = record;
    const char *end = record + length;
    unsigned long value[8] = {0};
    for (int i = 0; i < numbers; ++i) {
        char *after = NULL;
        value[i] = strtoul(at, &after, 10);
        if (after == at || *after != ',')
            return 0;
        at = after + 1;
    }
    size_t textLength = 0;
    if (takeText(&at, end, &textLength) == NULL)
        return 0;
    const char *text = takeText(&at, end, &textLength);
    Process *process = text != NULL ? findProcess(value[numbers - 2]) : NULL;
    if (process == NULL)
        return 0;
    ++process->records;
    if (process->texts != NULL) {
        fwrite(text, 1, textLength, process->texts);
        fputc('\n', process->texts);
    }
    return 1;
}

static void showRecord(const char *label, const char *record) {
    printf("    %s %.150s\n", label, record);
}

/* Reads one file; returns 0 when its header is readable and every record is whole. */
static int readFile(const char *path) {
    static zantLogOsFile file; /* 32 KiB of read buffer: not on the stack */
    LogFileHeader header;
    text_msg record;
    char *last = NULL;
    unsigned long records = 0;
    unsigned long damaged = 0;
    int32_t got = 0;

    if (zantLogOs_open(&file, path, ZANTLOG_OPEN_READ, NULL) != 0) {
        fprintf(stderr, "read_log: cannot open %s\n", path);
        return 1;
    }
    if (ReadHeaderEx(&file, &header) != 0) {
        fprintf(stderr, "read_log: no readable header in %s\n", path);
        zantLogOs_close(&file);
        return 1;
    }
    printf("  %s (version %lu, host %s)\n", path, (unsigned long)header.version, header.text);
    for (;;) {
        init_text_msg(&record);
        got = readrecord(&file, &record);
        if (got != 1)
            break;
        const size_t length = (size_t)(record.capacity - record.free) - 1;
        if (!countRecord(record.data, length, header.version == ZANTLOG_FORMAT_LOGSET ? 6 : 8))
            ++damaged;
        if (records++ == 0)
            showRecord("first:", record.data);
        zantLogFree(last);
        last = zantLogSafeStrdup(record.data);
        free_text_msg(&record);
    }
    free_text_msg(&record);
    if (last != NULL)
        showRecord("last: ", last);
    printf("    %lu records, %lu damaged\n", records, damaged);
    zantLogFree(last);
    zantLogOs_close(&file);
    return got < 0 || damaged != 0;
}

int main(int argc, char **argv) {
    int first = 1;
    int failed = 0;
    if (argc > 2 && strcmp(argv[1], "-o") == 0) {
        textDirectory = argv[2];
        first = 3;
    }
    if (argc <= first) {
        fprintf(stderr, "usage: read_log [-o DIRECTORY] FILE...\n");
        return 2;
    }
    for (int i = first; i < argc; ++i)
        failed |= readFile(argv[i]);
    for (int i = 0; i < processCount; ++i) {
        printf("  process %lu: %lu records\n", processes[i].id, processes[i].records);
        if (processes[i].texts != NULL && fclose(processes[i].texts) != 0)
            failed = 1;
    }
    return failed;
}
