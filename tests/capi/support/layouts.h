/* Small layout documents. */
#ifndef VELNOR_TESTS_LAYOUTS_H
#define VELNOR_TESTS_LAYOUTS_H

#ifdef __cplusplus
extern "C" {
#endif

#define CANVAS_OF(width, height)                                                                   \
    "<dpi>203</dpi><width>" #width "</width><height>" #height "</height>"

#define BOX                                                                                        \
    "<VelnorItem class='rectangle' id='box'><x>10</x><y>10</y><width>60</width>"                   \
    "<height>40</height><thickness>3</thickness></VelnorItem>"

#define QR_CODE                                                                                    \
    "<VelnorItem class='barcode' id='code'><x>90</x><y>10</y><width>80</width>"                    \
    "<height>80</height><type>58</type><text>TICKET 4711</text></VelnorItem>"

#define LABEL                                                                                      \
    "<VelnorItem class='text' id='label'><x>10</x><y>55</y><width>180</width>"                     \
    "<height>40</height><fontname>Liberation Sans</fontname><fontsize>10</fontsize>"               \
    "<text>Ticket</text></VelnorItem>"

/* Writes a layout whose canvas, of the id "canvas", holds `children`; returns its path. */
const char* writeLayout(const char* name, const char* children);

/* Renders the document to the file `output`, both with or without a folder; checks the results of
 * all calls. Returns the path of the output. */
const char* render(const char* document, const char* output);

/* Renders a layout that is written to "<name>.xml" to the file "<name>.png"; returns its path. */
const char* renderLayout(const char* name, const char* children);

/* The width of the picture that the handler's document makes now; 0 when it makes none. */
int drawnWidth(void* handler);

#ifdef __cplusplus
}
#endif

#endif
