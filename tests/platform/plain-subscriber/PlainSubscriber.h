/* A subscriber of a program written in C. */
#pragma once

#include <analytics/WindowBlankingChanges.h>

#ifdef __cplusplus
extern "C" {
#endif

struct PlainNotice {
  int calls;
  int kind;
  int size;
  struct tagWindowBlankingRegions record;
};

/* The callback; its context is a notice. */
WindowBlankingCallback PlainCallback(void);

int PlainRecordSize(void);
int PlainEntriesOffset(void);

#ifdef __cplusplus
}
#endif
