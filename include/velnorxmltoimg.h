/*
 * velnorxmltoimg: layout documents written in XML become raster images for roll printers.
 *
 * START-UP
 *   The library works inside a Qt application. A host that is no Qt program sets a thread aside
 *   for xmlToImgInitializeQtNoReturn, which does not return, and polls xmlToImgQtInitialized from
 *   its own thread until that answers 1. A Qt program calls xmlToImgInitializeQtNoReturn once, on
 *   its own thread, after it has made its QGuiApplication or QApplication, and the call returns at
 *   once. A host with a bare QCoreApplication, or none, can still use every function: fonts are
 *   then not registered and no text is drawn.
 *   The library's own application needs no display, prints nothing, and leaves the host's locale,
 *   environment and GLib main context as they were. Returning from main while it runs is fine.
 *   exit waits for calls in flight, 10 seconds at most, and new calls fail. A call that is still
 *   running then may crash the ending process.
 *
 * THREADS
 *   Every function may be called from any thread at any time, those that create and free handlers
 *   included; only calls on one handler must not overlap. Fonts belong to the whole process, and a
 *   call keeps the fonts that it finds until it ends. So creating or freeing a handler waits for calls
 *   in flight if it registers or removes fonts, as do the start and the end of the library's own
 *   application. A thread that draws needs a stack of 512 KiB. Cancellation is deferred until the
 *   call returns. No function may be called from a signal handler.
 *
 * THE HOST'S PROCESS
 *   A call leaves locale, environment, signal handlers and masks, floating-point state and standard
 *   streams as they were. After a fork, the child may execute another program or end by _exit; it may
 *   draw only if no thread was inside a call at the fork.
 *
 * TEXT
 *   Narrow functions take UTF-8 that ends with a zero byte; the names of tags and objects, however,
 *   are read as Latin-1. Functions whose names end in Unicode take UTF-16 code units and a length
 *   in code units; a negative length means: up to the terminating zero. A null wide text is an
 *   empty text, whatever its length. Wide names reach the dictionaries as UTF-8 bytes read as
 *   Latin-1: use names of ASCII characters. No input is changed or kept: the caller frees it
 *   whenever it likes.
 *
 * BUFFERS
 *   The caller owns every buffer that it passes and says how large it is: in bytes for narrow
 *   functions, in UTF-16 code units for wide ones. Nothing outside the stated size is touched; the
 *   one function that needs more room, xmlToImgGetDictionaryFromParamFile, says so.
 *
 * RESULTS
 *   0 is success and -1 is failure, unless a function says otherwise. A null handler gives -1
 *   before anything else happens. Nothing is thrown: where memory runs out, a function gives its
 *   failure value.
 *
 * DATA SYMBOLS
 *   Three variables are exported beside the functions. They are to be read, never written:
 *   VelnorQtStartedAsNonGuiApp below, and the C++ members VelnorXml::embeddedFontKeepFlag (bool)
 *   and VelnorXml::embeddedFontIdList, which hold what xmlToImgSetEmbeddedFontKeepFlag set and
 *   which font files are registered.
 */
#ifndef VELNORXMLTOIMG_H
#define VELNORXMLTOIMG_H

#if defined(__GNUC__)
#define VELNORXMLTOIMG_API __attribute__((visibility("default")))
#else
#define VELNORXMLTOIMG_API
#endif

#ifdef __cplusplus
extern "C" {
#endif

/* 1 once the library has made the Qt application itself, else 0. Stays 1 after that application
 * has ended. A host that cannot spare the pause of xmlToImgQtInitialized may poll this instead, with
 * __atomic_load_n. Its first calls then wait until loading is complete. */
VELNORXMLTOIMG_API extern int VelnorQtStartedAsNonGuiApp;

/* ---------------------------------------------------------------------------------- start-up */

/*
 * Announces the host's Qt application, or makes one.
 *
 * Where a Qt application exists, this records it and returns at once. Otherwise it makes one on the
 * calling thread, without a screen, and runs its event loop: the call returns only after somebody
 * has called QCoreApplication::quit. Start before other threads format or read numbers: for an
 * instant Qt sets the locale of the environment for the whole process. In a set-user-ID program the
 * call returns without effect until the program has given up its extra rights. While one thread is
 * making the application, further calls return at once without effect. After the application has
 * ended, this function may be called again.
 */
VELNORXMLTOIMG_API void xmlToImgInitializeQtNoReturn(void);

/*
 * Tells whether the Qt application is up and has been announced or made by
 * xmlToImgInitializeQtNoReturn.
 *
 * Result: 1, after a pause of 10 milliseconds, if it is; else 0, at once.
 */
VELNORXMLTOIMG_API int xmlToImgQtInitialized(void);

/*
 * Adds a directory to those in which Qt looks for plug-ins, such as readers of further image
 * formats. Call it after the application is up.
 *
 * path:   the directory in UTF-16; null is an empty text.
 * length: its code units, negative: up to the terminating zero.
 * Result: 0, which says nothing about the directory; -1 when memory ran out.
 */
VELNORXMLTOIMG_API int xmlToImgSetPluginPathUnicode(const unsigned short* path, int length);

/* ---------------------------------------------------------------------------------- handlers */

/*
 * Decides whether fonts that a handler registered outlive it, for the whole process. Off at first.
 *
 * flag:   non-zero to keep them. Off: each new handler registers every file of its font directory,
 *         and freeing any handler unregisters the fonts of all handlers. On: files of the same name
 *         and size are registered once and stay registered when handlers are freed. Takes effect
 *         when the next handler is created or freed.
 * Result: 1 for a non-zero flag, else 0.
 */
VELNORXMLTOIMG_API int xmlToImgSetEmbeddedFontKeepFlag(int flag);

/*
 * Creates the handler of one layout document. The document is read by the functions that need it,
 * each time anew, so it need not exist yet. Pictures are looked for beside the document, and the
 * font files in the folder "fonts" beside it are registered, where that folder exists.
 *
 * path:   the document in UTF-8; null is an empty path.
 * Result: the handler, to be given to xmlToImgFreeHandler; null only when memory ran out.
 */
VELNORXMLTOIMG_API void* xmlToImgCreateHandler(const char* path);

/* The same with the path in UTF-16 and its length in code units (negative: up to the terminating
 * zero; null is an empty path). */
VELNORXMLTOIMG_API void* xmlToImgCreateHandlerUnicode(const unsigned short* path, int length);

/*
 * Creates the handler of one layout document whose pictures and fonts lie elsewhere.
 *
 * path:    the document in UTF-8; null is an empty path.
 * images:  the directory of the pictures; null or empty: beside the document. It must hold a
 *          separator ("/data/images", "./images"); a bare name is ignored.
 * fonts:   the directory of the font files; null or empty: the folder "fonts" beside the document.
 * Result:  as xmlToImgCreateHandler.
 */
VELNORXMLTOIMG_API void* xmlToImgCreateHandlerWithDirs(const char* path, const char* images,
                                                       const char* fonts);

/* The same with three texts in UTF-16, each with its length in code units (negative: up to the
 * terminating zero; a null text is an empty one). */
VELNORXMLTOIMG_API void*
xmlToImgCreateHandlerWithDirsUnicode(const unsigned short* path, int pathLength,
                                     const unsigned short* images, int imagesLength,
                                     const unsigned short* fonts, int fontsLength);

/*
 * Frees a handler and, unless fonts are kept, unregisters the fonts of every handler.
 *
 * handler: from one of the creators; not to be used afterwards.
 * Result:  0; -1 for a null handler.
 */
VELNORXMLTOIMG_API int xmlToImgFreeHandler(void* handler);

/* ------------------------------------------------------------------------------ dictionaries */

/*
 * Empties the tag dictionary and the object tag dictionary of a handler.
 *
 * Result: 0; -1 for a null handler.
 */
VELNORXMLTOIMG_API int xmlToImgClearAllDictionary(void* handler);

/*
 * Sets what replaces the placeholder %tag% in the document's text before it is parsed.
 *
 * The value is inserted as raw XML text: a value from outside belongs into an object tag instead.
 * A tag that was set before keeps its first value. A placeholder must lie within one line.
 *
 * tag:    the name without percent signs, Latin-1, ended by a zero byte; null is an empty name.
 * value:  UTF-8, ended by a zero byte; null or empty removes the placeholder.
 * Result: 0; -1 for a null handler or when memory ran out.
 */
VELNORXMLTOIMG_API int xmlToImgSetTagDictionary(void* handler, const char* tag, const char* value);

/* The same in UTF-16 with lengths in code units (negative: up to the terminating zero; a null text
 * is an empty one). */
VELNORXMLTOIMG_API int xmlToImgSetTagDictionaryUnicode(void* handler, const unsigned short* tag,
                                                       int tagLength, const unsigned short* value,
                                                       int valueLength);

/*
 * Sets the text of an element of the document by name: "object.property" names the first element
 * called property inside the element whose id is object. A missing property element is made. The
 * value needs no XML escaping. The last value set for a property is the one that counts. A name
 * without a point sets a placeholder, as xmlToImgSetTagDictionary does.
 *
 * name:   Latin-1, ended by a zero byte; null is an empty name.
 * value:  UTF-8, ended by a zero byte; null is an empty text.
 * Result: 0, also when the document has no such object; -1 for a null handler or a name with two
 *         or more points.
 */
VELNORXMLTOIMG_API int xmlToImgSetObjectTagDictionary(void* handler, const char* name,
                                                      const char* value);

/* The same in UTF-16 with lengths in code units (negative: up to the terminating zero; a null text
 * is an empty one). */
VELNORXMLTOIMG_API int
xmlToImgSetObjectTagDictionaryUnicode(void* handler, const unsigned short* name, int nameLength,
                                      const unsigned short* value, int valueLength);

/*
 * Sets the text of an element of the document by its link: "object.link" names the element whose
 * attribute "link" is link inside the element whose id is object. The document is read to find it.
 * A name without a point sets a placeholder, as xmlToImgSetTagDictionary does.
 *
 * name:   Latin-1, ended by a zero byte; null is an empty name.
 * value:  UTF-8, ended by a zero byte; null is an empty text.
 * Result: 0; -1 for a null handler, a name with two or more points, a document that cannot be read,
 *         or a link that it does not have; nothing is stored then.
 */
VELNORXMLTOIMG_API int xmlToImgSetObjectLinkDictionary(void* handler, const char* name,
                                                       const char* value);

/* The same in UTF-16 with lengths in code units (negative: up to the terminating zero; a null text
 * is an empty one). */
VELNORXMLTOIMG_API int
xmlToImgSetObjectLinkDictionaryUnicode(void* handler, const unsigned short* name, int nameLength,
                                       const unsigned short* value, int valueLength);

/*
 * Reads the text that a property has in the document, tags and object tags applied.
 *
 * name:   "object.property", Latin-1, ended by a zero byte; null is an empty name.
 * out:    receives the value in UTF-8; the rest of the buffer is filled with zero bytes. A value
 *         of size bytes or more is cut to size - 1 bytes and a zero, perhaps inside a character.
 *         May be null: then only the result tells whether the property exists.
 * size:   of out in bytes; 0 or less: nothing is written.
 * Result: 0; -1 for a null handler, a name that is not two non-empty parts, a document that cannot
 *         be read, an unknown object or property, or a property that holds more than plain text.
 *         The buffer is untouched on failure.
 */
VELNORXMLTOIMG_API int xmlToImgGetObjectTagDictionary(void* handler, const char* name, char* out,
                                                      int size);

/*
 * The same in UTF-16.
 *
 * name:   with its length in code units (negative: up to the terminating zero; null is empty).
 * out:    receives the value and a zero unit, not null; units behind the zero are untouched. At
 *         most size - 1 units of the value are written, and no more than its first 2 * size - 1
 *         UTF-8 bytes hold.
 * size:   of out in code units.
 * Result: as xmlToImgGetObjectTagDictionary; also -1, with nothing written, for a size below 1.
 */
VELNORXMLTOIMG_API int xmlToImgGetObjectTagDictionaryUnicode(void* handler,
                                                             const unsigned short* name, int length,
                                                             unsigned short* out, int size);

/* As xmlToImgGetObjectTagDictionary for the name "object.link": reads the text of the element whose
 * attribute "link" is link inside the element whose id is object. */
VELNORXMLTOIMG_API int xmlToImgGetObjectLinkDictionary(void* handler, const char* name, char* out,
                                                       int size);

/* As xmlToImgGetObjectTagDictionaryUnicode for the name "object.link". */
VELNORXMLTOIMG_API int xmlToImgGetObjectLinkDictionaryUnicode(void* handler,
                                                              const unsigned short* name,
                                                              int length, unsigned short* out,
                                                              int size);

/*
 * Applies a parameter file: XML with the root "VelnorParams", in it elements "VelnorParam" whose
 * attribute "id" names an object and whose child elements name links of it, or else properties, and
 * hold the values. Each value is set as xmlToImgSetObjectLinkDictionary would set it; where the
 * object has no such link, as xmlToImgSetObjectTagDictionary would.
 *
 * path:   the parameter file in UTF-8, ended by a zero byte; null is an empty path.
 * Result: 0, also when single values were passed over (an entry without an id, or with a point in
 *         it); -1 for a null handler, a file that cannot be read or parsed, another root, or no
 *         entry; nothing is stored then.
 */
VELNORXMLTOIMG_API int xmlToImgSetDictionaryFromParamFile(void* handler, const char* path);

/* The same with the path in UTF-16 and its length in code units (negative: up to the terminating
 * zero; null is an empty path). */
VELNORXMLTOIMG_API int
xmlToImgSetDictionaryFromParamFileUnicode(void* handler, const unsigned short* path, int length);

/*
 * Lists the keys ("object.link") and the values of a parameter file, neighbours separated by the
 * character U+001E; then looks the key list up as one object tag, as xmlToImgGetObjectTagDictionary
 * does, and overwrites the values with what it finds. So a file of one pair whose key can be read
 * in the document gives 0 and the document's current value; any other file gives -1 and both lists.
 * xmlToImgGetDictionaryFromParamFileUnicode is the plain lister.
 *
 * path:       the parameter file in UTF-8, ended by a zero byte; null is an empty path.
 * tags:       receives the keys in UTF-8, the rest filled with zero bytes; may be null. A key list
 *             of tagsSize bytes or more fills the buffer, which then ends WITHOUT a zero byte.
 * tagsSize:   of tags in bytes; 0 or less: nothing is written.
 * values:     receives the values in UTF-8, the rest filled with zero bytes; may be null. A value
 *             list of valuesSize bytes or more is cut to valuesSize - 1 bytes and a zero.
 * valuesSize: of values in bytes; 0 or less: no value is written. Pass at least tagsSize: where the
 *             key list fills its buffer, its zero byte goes to position tagsSize - 1 of VALUES, so
 *             values must hold tagsSize bytes even where valuesSize is smaller.
 * Result:     that of the look-up; -1 for a null handler. A file that cannot be read fills both
 *             buffers with zero bytes.
 */
VELNORXMLTOIMG_API int xmlToImgGetDictionaryFromParamFile(void* handler, const char* path,
                                                          char* tags, int tagsSize, char* values,
                                                          int valuesSize);

/*
 * Lists the keys ("object.link") and the values of a parameter file, neighbours separated by the
 * character U+001E; the n-th value belongs to the n-th key.
 *
 * path:   the parameter file in UTF-16 with its length in code units (negative: up to the
 *         terminating zero; null is an empty path).
 * tags:   receives the keys and a zero unit, not null. A list of size units or more is cut to
 *         size - 1 units and a zero; units behind the zero are untouched.
 * values: receives the values in the same way, not null.
 * size:   of each of the two buffers in code units.
 * Result: 0; -1, with nothing written, for a null handler, a size below 1, a file that cannot be
 *         read or parsed, another root, or no entry.
 */
VELNORXMLTOIMG_API int xmlToImgGetDictionaryFromParamFileUnicode(void* handler,
                                                                 const unsigned short* path,
                                                                 int length, unsigned short* tags,
                                                                 unsigned short* values, int size);

/* ------------------------------------------------------------------------------------ images */

/*
 * Renders the document to an image file and replaces a file of that name: whoever reads it sees the
 * old picture or the new one, complete. The new picture is another file (inode), which takes the
 * name, owner, permissions and extended attributes of the old one. So whoever has the old file open
 * keeps the old picture, and a watcher of the folder (inotify) sees IN_CREATE for a new name and
 * IN_MOVED_TO for a replaced one, never IN_CLOSE_WRITE. The file is written in place only if it is a
 * device, a pipe, a link to nothing or has several names, if its owner or attributes cannot be kept,
 * or if its folder or file system takes no new file without a name.
 *
 * path:   the output file in UTF-8, ended by a zero byte; not null. Its suffix chooses the format:
 *         ".png" gives PNG.
 * Result: 0 for every handler, whether or not a picture was written: a document that cannot be read
 *         and a file that cannot be written give 0 as well, so look for the file. -1 for a null
 *         handler and where memory runs out; nothing is written then.
 */
VELNORXMLTOIMG_API int xmlToImgCreateImage(void* handler, const char* path);

/* The same with the path in UTF-16 and its length in code units (negative: up to the terminating
 * zero; null is an empty path, which writes nothing). */
VELNORXMLTOIMG_API int xmlToImgCreateImageUnicode(void* handler, const unsigned short* path,
                                                  int length);

/* ----------------------------------------------------------------------------------- queries */

/*
 * Checks whether the items of the document can be drawn as asked: whether picture files exist (not
 * whether they can be read), fonts and their styles, barcode types and data, thicknesses, styles and
 * lengths.
 *
 * messages: receives one English message for each finding, in document order, joined without a
 *           separator (each ends with "; "), in UTF-8, the rest filled with zero bytes. What does
 *           not fit into size - 1 bytes is cut, perhaps inside a character. May be null.
 * size:     of messages in bytes; 0 or less: nothing is written.
 * Result:   0 when nothing was found; -1 when something was, also where messages could not hold it;
 *           -1 with the buffer untouched for a null handler or a document that does not parse; -1
 *           with an empty buffer where no GUI application exists.
 */
VELNORXMLTOIMG_API int xmlToImgCheckCorrect(void* handler, char* messages, int size);

/*
 * Reads what the layout tells the printer: the elements "presentation", "ejectRetract" and
 * "ejectRetractTimeout" of the canvas, tags and object tags applied.
 *
 * presentation: receives the number, -1 when it is missing or no number. Not null.
 * ejectRetract: receives 0 for "eject", 1 for "retract" (in any case, blanks around allowed), -1
 *               for anything else. Not null.
 * timeout:      receives the number, -1 when it is missing or no number. Not null.
 * Result:       0, also for a document that cannot be read; -1 for a null handler, with the three
 *               integers untouched.
 */
VELNORXMLTOIMG_API int xmlToImgGetPrinterSettings(void* handler, int* presentation,
                                                  int* ejectRetract, int* timeout);

/*
 * Tells whether a font family can be used, and whether it has bold and italic styles.
 *
 * handler: any handler, not null; nothing of it is used.
 * family:  UTF-8, ended by a zero byte; null is an empty name, which stands for the default font.
 * bold:    receives 1 or 0. Where it or italic is null, the result is -1 and nothing is written.
 * italic:  receives 1 or 0.
 * Result:  0; -1 for a null handler, an unknown family (both integers are 0 then), or where no GUI
 *          application exists (likewise).
 */
VELNORXMLTOIMG_API int xmlToImgGetFontProperty(void* handler, const char* family, int* bold,
                                               int* italic);

/* The same with the family in UTF-16 and its length in code units (negative: up to the terminating
 * zero; null is an empty name). */
VELNORXMLTOIMG_API int xmlToImgGetFontPropertyUnicode(void* handler, const unsigned short* family,
                                                      int length, int* bold, int* italic);

/*
 * Lists the fonts that the process can use at this moment, those of handlers included.
 *
 * Result: entries of a family, one blank and a style, separated by ";", in Latin-1 (other
 *         characters become question marks), ended by a zero byte; to be given to
 *         xmlToImgFreeFontList. Null when there are no fonts, where no GUI application exists, or
 *         when memory ran out.
 */
VELNORXMLTOIMG_API char* xmlToImgAvailableFontList(void);

/* Frees a list from xmlToImgAvailableFontList; null is ignored. */
VELNORXMLTOIMG_API void xmlToImgFreeFontList(char* list);

#ifdef __cplusplus
}
#endif

#endif
