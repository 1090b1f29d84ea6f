/* ical_parse: libical's own parse of a calendar file, for the whole-process timings beside the
 * program's (bench/link_bench.sh). Reads FILE whole, parses it with icalparser_parse_string,
 * prints the number of events in it and frees everything.
 *
 * usage: ical_parse FILE.ics
 * Exit 1 when the file cannot be read or holds no calendar. */
#include <libical/ical.h>
#include <stdio.h>
#include <stdlib.h>

/* The whole file as one string; NULL when it cannot be read. */
static char* ReadWholeFile(const char* path) {
  FILE* file = fopen(path, "rb");
  if (file == NULL) return NULL;
  size_t size = 0;
  size_t capacity = 1 << 16;
  char* text = malloc(capacity);
  while (text != NULL) {
    size += fread(text + size, 1, capacity - size - 1, file);
    if (size + 1 < capacity) break;
    capacity *= 2;
    char* grown = realloc(text, capacity);
    if (grown == NULL) free(text);
    text = grown;
  }
  const int failed = ferror(file);
  fclose(file);
  if (text == NULL || failed) {
    free(text);
    return NULL;
  }
  text[size] = '\0';
  return text;
}

/* The events of a component and of the components within it. */
static long CountEvents(icalcomponent* component) {
  if (icalcomponent_isa(component) == ICAL_VEVENT_COMPONENT) return 1;
  long count = 0;
  for (icalcomponent* inner = icalcomponent_get_first_component(component, ICAL_ANY_COMPONENT);
       inner != NULL; inner = icalcomponent_get_next_component(component, ICAL_ANY_COMPONENT)) {
    count += CountEvents(inner);
  }
  return count;
}

int main(int argc, char** argv) {
  if (argc != 2) {
    fprintf(stderr, "usage: ical_parse FILE.ics\n");
    return 2;
  }
  char* text = ReadWholeFile(argv[1]);
  if (text == NULL) {
    fprintf(stderr, "ical_parse: cannot read %s\n", argv[1]);
    return 1;
  }
  icalcomponent* calendar = icalparser_parse_string(text);
  free(text);
  if (calendar == NULL) {
    fprintf(stderr, "ical_parse: %s holds no calendar\n", argv[1]);
    return 1;
  }
  printf("%ld\n", CountEvents(calendar));
  icalcomponent_free(calendar);
  return 0;
}
