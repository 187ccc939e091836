/* Font files under family names that no machine has installed. */
#ifndef VELNOR_TESTS_FONTS_H
#define VELNOR_TESTS_FONTS_H

#ifdef __cplusplus
extern "C" {
#endif

#define SANS VELNOR_TEST_FONTS "/LiberationSans-Regular.ttf"
#define SANS_BOLD VELNOR_TEST_FONTS "/LiberationSans-Bold.ttf"
#define SANS_ITALIC VELNOR_TEST_FONTS "/LiberationSans-Italic.ttf"
#define MONO VELNOR_TEST_FONTS "/LiberationMono-Regular.ttf"

/* Writes a copy of a font file of the family "Liberation Sans" whose family is "<brand> Sans". The
 * brand is UTF-8 of ten UTF-16 code units. Returns the path of the copy. */
const char* writeFont(const char* name, const char* original, const char* brand);

#ifdef __cplusplus
}
#endif

#endif
