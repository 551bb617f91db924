#include "tests/platform/plain-subscriber/PlainSubscriber.h"

#include <stddef.h>

static int KeepNotice(void* context, int kind, void* data, int size) {
  struct PlainNotice* notice = context;
  ++notice->calls;
  notice->kind = kind;
  notice->size = size;
  notice->record = *(const struct tagWindowBlankingRegions*)data;
  return 0;
}

WindowBlankingCallback PlainCallback(void) { return &KeepNotice; }

int PlainRecordSize(void) { return (int)sizeof(struct tagWindowBlankingRegions); }

int PlainEntriesOffset(void) { return (int)offsetof(struct tagWindowBlankingRegions, regions); }
