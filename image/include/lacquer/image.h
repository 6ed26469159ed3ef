/* lacquer_image: textures and bitmaps from PNG, JPEG and WebP, and PNG from whatever has pixels. A library of its own
 * beside Lacquer, which itself knows no file formats.
 *
 *     HGTEXTURE icon = LoadTextureFromFile("icon.png", NULL);
 *     if (icon.value == 0) puts(ImageLastError());
 *
 * Conventions, unless a declaration says otherwise:
 *
 * - Results: 1 for done and 0 for refused, or a handle that is 0 on failure. What failed is told by ImageLastStatus and
 *   ImageLastError. A call that is refused makes no object, writes to no argument and leaves no file of its own behind.
 *   Nothing is thrown, printed or aborted.
 *
 * - Pixels of a loaded object: 32-bit words 0xAARRGGBB, premultiplied as NormalizeTexture does it. The draw mode is
 *   LACQUER_DRAW_OVER when some pixel's alpha is below 255, and LACQUER_DRAW_COPY otherwise, so that a loaded picture
 * is drawn right without further settings. Channels of 16 bits are rounded to 8. Flags change this: see ImageLoadFlags.
 *
 * - What is read: PNG with every colour type and depth, interlaced or not; baseline and progressive JPEG with 8 bits a
 *   channel, grey, YCbCr, RGB, CMYK and YCCK; WebP, lossy or lossless, with or without alpha, and the first frame of an
 *   animated one. The content decides, not the name of the file. A JPEG is turned upright by the orientation in its
 * Exif data; that of other formats is ignored. Colour profiles (ICC), gamma and chromaticities are ignored: the numbers
 * in the file are the numbers of the pixels. CMYK becomes red, green and blue by multiplication with black.
 *
 * - Hostile files: width, height and memory are compared with the limits of ImageLoadOptions before anything of that
 *   size is allocated. A file that is damaged, or cut off anywhere before its end, is refused as a whole; what follows
 *   after its end does not count. Checksums of PNG are verified.
 *
 * - Paths are UTF-8 and end with a zero, on Windows, too.
 *
 * - Threads: any thread may call any function; one thread at a time works on an object. Data are only read, so that
 *   threads may load from the same at once. Status and text belong to the thread.
 *
 * - Since: all of it is in version 0.1.
 *
 * The header compiles as C11 and as C++17. <lacquer/image.hpp> has the same for owners in C++.
 */
#ifndef LACQUER_IMAGE_H
#define LACQUER_IMAGE_H

#include <lacquer/lacquer.h>
#include <stddef.h>
#include <stdint.h>

#ifdef _WIN32
#define LACQUER_IMAGE_API
#else
#define LACQUER_IMAGE_API __attribute__((visibility("default")))
#endif

#ifdef __cplusplus
extern "C" {
#endif

/* ---- Failures ----------------------------------------------------------------------------------------------- */

/** What became of a call: the result of ImageLastStatus. */
enum ImageStatus {
    LACQUER_IMAGE_DONE = 0,         /**< done */
    LACQUER_IMAGE_BAD_ARGUMENT = 1, /**< a null pointer, a wrong handle, an unknown flag, a depth without pixels */
    LACQUER_IMAGE_BAD_FILE = 2,     /**< the file cannot be opened, read or written, or its path is no UTF-8 */
    LACQUER_IMAGE_BAD_FORMAT = 3,   /**< neither PNG nor JPEG nor WebP */
    LACQUER_IMAGE_UNSUPPORTED = 4,  /**< a rare kind of one of the formats, as JPEG with 12 bits a channel */
    LACQUER_IMAGE_DAMAGED = 5,      /**< the content contradicts its format, or ends early */
    LACQUER_IMAGE_TOO_LARGE = 6,    /**< more pixels or bytes than the limits allow, or beyond reason to decode */
    LACQUER_IMAGE_NO_MEMORY = 7     /**< memory is short, or no handle is free */
};

/**
 * What became of this thread's last call of a function of this header (but FreeImageData, and this and the next one).
 *
 * @return one of ImageStatus; LACQUER_IMAGE_DONE before the first call. Never fails.
 * @see ImageLastError
 */
LACQUER_IMAGE_API int ImageLastStatus(void);

/**
 * Why this thread's last call was refused: one line in English, in ASCII, for a log or a developer. Where a decoder
 * found the fault, its own words are part of it.
 *
 * @return a text that is never null, and empty after a call that was not refused. It stays valid until the thread's
 * next call. Never fails.
 * @see ImageLastStatus
 */
LACQUER_IMAGE_API const char *ImageLastError(void);

/* ---- What is in a file -------------------------------------------------------------------------------------- */

/** The formats. */
enum ImageFormat { LACQUER_IMAGE_PNG = 1, LACQUER_IMAGE_JPEG = 2, LACQUER_IMAGE_WEBP = 3 };

/** What is known of a picture before its pixels are decoded. 28 bytes. */
typedef struct ImageFileInfo {
    DWORD format;       /**< one of ImageFormat */
    DWORD width;        /**< pixels, at least 1, as the loaded object will have it: after a JPEG has been turned */
    DWORD height;       /**< pixels, at least 1, likewise; may be above the limits, and then can't be loaded */
    DWORD bitsPerPixel; /**< 8, 24 or 32: the depth of the object with LACQUER_IMAGE_KEEP_DEPTH; without it 32 */
    DWORD hasAlpha;     /**< 1 when the file can hold alpha below 255, 0 when all of it is opaque */
    DWORD orientation;  /**< 1 to 8 as Exif counts, 1 being upright; other formats than JPEG: 1 */
    DWORD isAnimated;   /**< 1 for a WebP of several frames, of which the first is loaded; otherwise 0 */
} ImageFileInfo;

/**
 * Reads what is known of a picture, without decoding its pixels. Reads and allocates little, whatever the file says.
 *
 * @param utf8Path  the file; null is refused
 * @param out       receives the record; null is refused. Unchanged when the call is refused.
 * @return 1, or 0 when the file cannot be read, or its header is damaged or of no known format. That the pixels are
 * sound shows only when they are loaded.
 * @see GetImageDataInfo, LoadTextureFromFile
 */
LACQUER_IMAGE_API int GetImageFileInfo(const char *utf8Path, ImageFileInfo *out);

/**
 * GetImageFileInfo for a file that is in memory.
 *
 * @param data    the file's bytes; null is refused. The first 64 KiB are enough for nearly every file.
 * @param length  how many bytes there are
 * @param out     receives the record; null is refused. Unchanged when the call is refused.
 * @return 1, or 0 as GetImageFileInfo
 * @see GetImageFileInfo, LoadTextureFromData
 */
LACQUER_IMAGE_API int GetImageDataInfo(const void *data, size_t length, ImageFileInfo *out);

/* ---- Loading ------------------------------------------------------------------------------------------------ */

/** How pictures are loaded; added up. Other bits are refused. */
enum ImageLoadFlags {
    /** Colours as they are in the file, not multiplied by alpha, and draw mode LACQUER_DRAW_COPY: for a colour key,
     * which finds its pixels by the colour that they keep under alpha 0, and for masks. */
    LACQUER_IMAGE_STRAIGHT = 1,
    /** The smallest depth that keeps the file's colours: 8 bits with a palette for PNG with a palette, 8 bits with the
     * shared palette of greys for greys without alpha, 24 bits for colours without alpha, else 32. It takes less
     * memory, but some functions want 32 bits. A palette's words are premultiplied likewise. WebP without alpha has 24.
     */
    LACQUER_IMAGE_KEEP_DEPTH = 2,
    /** A JPEG's pixels as they are stored, not turned upright. */
    LACQUER_IMAGE_KEEP_ORIENTATION = 4
};

/** How, and up to what limits, pictures are loaded. A record of zeros means the same as none. 16 bytes. */
typedef struct ImageLoadOptions {
    DWORD flags;       /**< of ImageLoadFlags, added up */
    DWORD maxSide;     /**< the greatest width and height, pixels; 0, and more than 32767, stand for 32767 */
    uint64_t maxBytes; /**< the most bytes that the pixels may have, counted as 32 bits each, and that a file may have;
                        * 0 stands for 268,435,456 (256 MiB). While it works, a decoder may take twice as much again. */
} ImageLoadOptions;

/**
 * A new texture with the pixels of a file. It has no slices and the layout record 0.
 *
 * @param utf8Path  the file; null is refused
 * @param options   how to load; null for the defaults
 * @return the texture, which the caller deletes with DeleteTexture; 0 on failure
 * @see LoadTextureFromData, LoadBitmapFromFile, GetImageFileInfo, SetTextureMode, SetTextureSlice
 */
LACQUER_IMAGE_API HGTEXTURE LoadTextureFromFile(const char *utf8Path, const ImageLoadOptions *options);

/**
 * LoadTextureFromFile for a file that is in memory, as a resource of the program is.
 *
 * @param data     the file's bytes, which are not kept; null is refused
 * @param length   how many bytes there are
 * @param options  how to load; null for the defaults
 * @return the texture, which the caller deletes with DeleteTexture; 0 on failure
 * @see LoadTextureFromFile, GetImageDataInfo
 */
LACQUER_IMAGE_API HGTEXTURE LoadTextureFromData(const void *data, size_t length, const ImageLoadOptions *options);

/**
 * A new bitmap, in process memory, with the pixels of a file.
 *
 * @param utf8Path  the file; null is refused
 * @param options   how to load; null for the defaults
 * @return the bitmap, which the caller deletes with DeleteBitmap; 0 on failure
 * @see LoadBitmapFromData, LoadTextureFromFile
 */
LACQUER_IMAGE_API HGBITMAP LoadBitmapFromFile(const char *utf8Path, const ImageLoadOptions *options);

/**
 * LoadBitmapFromFile for a file that is in memory.
 *
 * @param data     the file's bytes, which are not kept; null is refused
 * @param length   how many bytes there are
 * @param options  how to load; null for the defaults
 * @return the bitmap, which the caller deletes with DeleteBitmap; 0 on failure
 * @see LoadBitmapFromFile, LoadTextureFromData
 */
LACQUER_IMAGE_API HGBITMAP LoadBitmapFromData(const void *data, size_t length, const ImageLoadOptions *options);

/* ---- PNG from pixels -----------------------------------------------------------------------------------------
 * PNG holds straight colours: those of a pixel are divided by its alpha, to the nearest value of those that become the
 * pixel again when they are premultiplied. So a file that is written and loaded again gives the same pixels; colours
 * beyond their alpha apart, which are cut to 255, and colours under alpha 0, which become 0. The file has 8 bits a
 * channel, and alpha only when some pixel needs it. Pixels of 8 bits are written as the colours of their palette.
 * Objects of other depths than 8, 24 and 32 bits, and canvases made from a device context, are refused. */

/** How PNG is written; added up. Other bits are refused. */
enum PngSaveFlags {
    /** The colours as they are, without alpha: what a window shows of a canvas, also where GDI has drawn, which leaves
     * 0 in alpha. */
    LACQUER_PNG_OPAQUE = 1
};

/**
 * Write all pixels of an object to a file, whatever its clip, origins, slices and draw mode. A file that is there
 * already is replaced; when writing fails, what was written of it is removed.
 *
 * @param canvas, texture, bitmap  the object; a wrong handle is refused
 * @param utf8Path  the file; null is refused. Its folder has to exist.
 * @param flags     of PngSaveFlags, added up
 * @return 1, or 0 on failure
 * @see EncodeCanvasAsPng, LoadTextureFromFile
 */
LACQUER_IMAGE_API int SaveCanvasAsPng(HGCANVAS canvas, const char *utf8Path, DWORD flags);
LACQUER_IMAGE_API int SaveTextureAsPng(HGTEXTURE texture, const char *utf8Path, DWORD flags); /**< as SaveCanvasAsPng */
LACQUER_IMAGE_API int SaveBitmapAsPng(HGBITMAP bitmap, const char *utf8Path, DWORD flags);    /**< as SaveCanvasAsPng */

/**
 * Write all pixels of an object to memory, as SaveCanvasAsPng to a file.
 *
 * @param canvas, texture, bitmap  the object; a wrong handle is refused
 * @param flags   of PngSaveFlags, added up
 * @param length  receives how many bytes the file has; null is refused. Unchanged when the call is refused.
 * @return the file's bytes, which the caller frees with FreeImageData; null on failure
 * @see SaveCanvasAsPng, LoadTextureFromData
 */
LACQUER_IMAGE_API void *EncodeCanvasAsPng(HGCANVAS canvas, DWORD flags, size_t *length);
LACQUER_IMAGE_API void *EncodeTextureAsPng(HGTEXTURE texture, DWORD flags, size_t *length); /**< as EncodeCanvasAsPng */
LACQUER_IMAGE_API void *EncodeBitmapAsPng(HGBITMAP bitmap, DWORD flags, size_t *length);    /**< as EncodeCanvasAsPng */

/**
 * Frees the bytes of a file that was written to memory. Leaves status and text as they are.
 *
 * @param data  what EncodeCanvasAsPng, EncodeTextureAsPng or EncodeBitmapAsPng gave, once; null does nothing
 */
LACQUER_IMAGE_API void FreeImageData(void *data);

#ifdef __cplusplus
}
#endif

#endif
