/** @file
 * velGraphic: anti-aliased vector drawing into the pixels of somebody else: lines, shapes, paths, gradients, glyph runs
 * and frames of Lottie animations. It is the companion of the Lacquer raster library and can be used without it.
 *
 * Conventions, unless a declaration says otherwise:
 *
 * - Results: 1 for done and 0 for refused, or an object that is null on failure. A null object, a null pointer where a
 *   record is required, a number that is infinite or not a number, and a value outside its table are refused: the
 *   result is 0, nothing is drawn or changed, and the object works on as before. Nothing is thrown or printed.
 *
 * - Objects are pointers to what only the library knows. One that was destroyed must not be used again: unlike
 *   Lacquer's handles, these can't tell.
 *
 * - Coordinates are pixels, x to the right and y down; the canvas's translation is added to them. Pixel (0, 0) is the
 *   square between (0, 0) and (1, 1). Angles are degrees, clockwise on screen from the positive x axis; those of an
 *   ellipse count on the circle that it is stretched from.
 *
 * - Limits: shapes, paths, strokes and gradients may reach as far as floats do. What is seen of them is drawn:
 *   straight lines where they are; curves, and the dashes of a stroke, to about 2^-50 of the largest coordinate or
 *   length. Refused is a stroke width, dash length, text size or animation side of more than 32767 pixels; a stroke
 *   of which more than 10,000 dashes would be seen; and a glyph or an animation that, after the translation, lies
 *   more than 1,000,000 pixels from the origin. Drawing reaches the first 32767 columns and rows of a bitmap.
 *
 * - Work: on 2000 x 2000 pixels no call takes longer than about two seconds. A figure that the renderer would take much
 *   longer than a second for has its coverage counted out of 8 x 8 samples a pixel. Refused is a figure of more than
 *   1,000,000 lines and curves after clipping, and one that even so has more than 3,000,000 edges, or edges that cross
 *   more than 75,000,000 rows of visible pixels (600,000,000 without anti-aliasing) taken together. The edges of a
 *   stroke are those of its lines, corners and ends. A gradient has at most 100,000 stops.
 *
 * - Colours are straight 0xAARRGGBB. Pixels are premultiplied words 0xAARRGGBB, in memory blue, green, red, alpha.
 *
 * How the comments are to be read: one comment stands for all functions up to the next empty line. What it leaves out,
 * the head of its section says for all its functions (parameters, result), and else the end of this comment.
 *
 * The header compiles as C11 and as C++17. On Windows the types come from <windows.h>.
 *
 * @par Threads
 * Any thread may call it; one thread at a time works on a canvas, path, gradient or animation.
 * @since 0.1.0
 */
#ifndef VELGRAPHIC_VELGRAPHIC_H
#define VELGRAPHIC_VELGRAPHIC_H

#ifdef _WIN32
#include <windows.h>
#else
#include <velgraphic/win32_types.h>
#endif
#include <stddef.h>

#ifdef _WIN32
#define VELGRAPHIC_API
#else
/** Stands before what the library exports. */
#define VELGRAPHIC_API __attribute__((visibility("default")))
#endif

/** @defgroup velgraphic velGraphic
 * The companion library by itself: vector drawing into anybody's pixels. */

/** What draws: a state, a stack of saved states, and a bitmap to draw on. @ingroup vel_canvas */
typedef struct velCanvas velCanvas;

/** A description of pixels that belong to the caller. @ingroup vel_canvas */
typedef struct velBitmap velBitmap;

/** Figures of lines and curves. @ingroup vel_paths */
typedef struct velPath velPath;

/** Colours along a line or outwards from a point. @ingroup vel_gradients */
typedef struct velGradient velGradient;

/** An animation. @ingroup vel_animations */
typedef struct velLottie velLottie;

/** A point, or a distance. @ingroup vel_paths */
typedef struct velPointF {
    float x; /**< to the right, pixels */
    float y; /**< down, pixels */
} velPointF;

/** A rectangle by its edges. @ingroup vel_paths */
typedef struct velRectF {
    float left;   /**< the smaller x, pixels */
    float top;    /**< the smaller y, pixels */
    float right;  /**< the larger x, pixels */
    float bottom; /**< the larger y, pixels */
} velRectF;

/** Where pixels are: premultiplied words 0xAARRGGBB, rows from the top. @ingroup vel_canvas */
typedef struct velBitmapData {
    LONG width;  /**< pixels in a row */
    LONG height; /**< rows */
    LONG stride; /**< bytes from one row to the next */
    void *bits;  /**< the first byte of the top-left pixel (at offset 16) */
} velBitmapData;

/** How large a run of text is, in pixels. @ingroup vel_text */
typedef struct velTextExtent {
    float advance;    /**< how far from its origin the next run would begin */
    float ascent;     /**< how far the fonts used reach above the baseline, positive */
    float descent;    /**< how far they reach below it, positive */
    float lineHeight; /**< the distance of two baselines */
    velRectF ink;     /**< around the pixels that it would touch, from a baseline origin at a whole pixel; all 0 for
                           none */
} velTextExtent;

/** What an animation says of itself. @ingroup vel_animations */
typedef struct velLottieInfo {
    LONG width;       /**< its own width, pixels */
    LONG height;      /**< its own height, pixels */
    float frameCount; /**< how many frames there are, at least 1 */
    float frameRate;  /**< frames per second */
} velLottieInfo;

/** How shapes and paths are drawn, for velCanvasSetDrawStyle. @ingroup vel_state */
enum {
    VEL_STYLE_STROKE = 0,         /**< their lines, in the colour */
    VEL_STYLE_FILL = 1,           /**< what they enclose, in the colour; initial */
    VEL_STYLE_GRADIENT_FILL = 2,  /**< what they enclose, in the gradient */
    VEL_STYLE_GRADIENT_STROKE = 3 /**< their lines, in the gradient */
};

/** How what is drawn (the source) meets what is there (the destination), for velCanvasSetBlendMode: the Porter-Duff
 * operators and the separable blend modes. SOURCE_IN, DESTINATION_IN, SOURCE_OUT and DESTINATION_ATOP change pixels
 * where nothing is drawn, too, wherever the clip allows. @ingroup vel_state */
enum {
    VEL_BLEND_SOURCE_OVER = 0,      /**< the source over the destination; initial */
    VEL_BLEND_SOURCE = 1,           /**< the source in place of the destination */
    VEL_BLEND_CLEAR = 2,            /**< nothing, transparent black */
    VEL_BLEND_DESTINATION_OVER = 3, /**< the source behind the destination */
    VEL_BLEND_SOURCE_IN = 4,        /**< the source where the destination is */
    VEL_BLEND_DESTINATION_IN = 5,   /**< the destination where the source is */
    VEL_BLEND_SOURCE_OUT = 6,       /**< the source where the destination is not */
    VEL_BLEND_DESTINATION_OUT = 7,  /**< the destination where the source is not */
    VEL_BLEND_SOURCE_ATOP = 8,      /**< the source over the destination, where that is */
    VEL_BLEND_DESTINATION_ATOP = 9, /**< the destination over the source, where that is */
    VEL_BLEND_XOR = 10,             /**< each where the other is not */
    VEL_BLEND_PLUS = 11,            /**< the sum, at most 255 a channel */
    VEL_BLEND_MULTIPLY = 12,        /**< the product: as dark as the darker one, or darker */
    VEL_BLEND_SCREEN = 13,          /**< the product of the complements: as light as the lighter one, or lighter */
    VEL_BLEND_OVERLAY = 14,         /**< multiplies where the destination is dark, screens where it is light */
    VEL_BLEND_DARKEN = 15,          /**< the darker one of each channel */
    VEL_BLEND_LIGHTEN = 16,         /**< the lighter one of each channel */
    VEL_BLEND_COLOR_DODGE = 17,     /**< brightens the destination by the source */
    VEL_BLEND_COLOR_BURN = 18,      /**< darkens the destination by the source */
    VEL_BLEND_HARD_LIGHT = 19,      /**< multiplies where the source is dark, screens where it is light */
    VEL_BLEND_SOFT_LIGHT = 20,      /**< darkens or lightens softly, by the source */
    VEL_BLEND_DIFFERENCE = 21,      /**< the difference of each channel */
    VEL_BLEND_EXCLUSION = 22        /**< as the difference, with less contrast */
};

/** The ends of open strokes and of dashes, for velCanvasSetStrokeCap. @ingroup vel_state */
enum {
    VEL_CAP_BUTT = 0,  /**< cut off at the end point; initial */
    VEL_CAP_ROUND = 1, /**< a half circle around it */
    VEL_CAP_SQUARE = 2 /**< cut off half a stroke width beyond it */
};

/** The corners of strokes, for velCanvasSetStrokeJoin. @ingroup vel_state */
enum {
    VEL_JOIN_MITER = 0, /**< a point; below about 11 degrees bevelled instead; initial */
    VEL_JOIN_ROUND = 1, /**< rounded */
    VEL_JOIN_BEVEL = 2  /**< cut off */
};

/** How strokes are dashed, for velCanvasSetDashStyle: lengths on and off in multiples of the stroke width.
 * @ingroup vel_state */
enum {
    VEL_DASH_SOLID = 0,        /**< not at all; initial */
    VEL_DASH_DASH = 1,         /**< 3 on, 1 off */
    VEL_DASH_DOT = 2,          /**< 1 on, 1 off */
    VEL_DASH_DASH_DOT = 3,     /**< 3 on, 1 off, 1 on, 1 off */
    VEL_DASH_DASH_DOT_DOT = 4, /**< 3 on, 1 off, 1 on, 1 off, 1 on, 1 off */
    VEL_DASH_PATTERN = 5       /**< that of velCanvasSetDashPattern, in pixels; solid as long as there is none */
};

/** Which points a path encloses, for velPathSetFillType. @ingroup vel_paths */
enum {
    VEL_FILL_WINDING = 0, /**< those that it winds around; initial */
    VEL_FILL_EVEN_ODD = 1 /**< those that it winds around an odd number of times */
};

/** Bits of a font style, for velCanvasSetFontStyle. Bold and italic are synthesised where the family has no such face.
 * @ingroup vel_text */
enum {
    VEL_FONT_BOLD = 0x1,      /**< bold */
    VEL_FONT_ITALIC = 0x2,    /**< italic */
    VEL_FONT_UNDERLINE = 0x4, /**< a bar under the text */
    VEL_FONT_STRIKE_OUT = 0x8 /**< a bar through the text */
};

#ifdef __cplusplus
extern "C" {
#endif

/** @defgroup vel_canvas Canvases and bitmaps
 * What draws, and the pixels that it draws on.
 *
 * @param canvas the canvas; null is refused
 * @param bitmap the bitmap; null is refused
 * @return 1; 0 when a pointer is refused
 * @ingroup velgraphic
 * @{ */

/** A new canvas without a bitmap, in the initial state: fill with opaque black, source over, blend value 255, smooth,
 * stroke width 1, butt caps, miter joins, solid, no gradient, the font of the system's user interface, text size 16,
 * no translation, nothing clipped.
 * @return the canvas, which velCanvasDestroy gives up; null when memory is short
 * @see velCanvasSetBitmap */
VELGRAPHIC_API velCanvas *velCanvasCreate(void);

/** Destroys a canvas with its saved states, and gives up its references to bitmap and gradients.
 * @param canvas the canvas; null is refused, and does no harm */
VELGRAPHIC_API int velCanvasDestroy(velCanvas *canvas);

/** A new bitmap: describes pixels at `bits`; nothing is copied. The pixels must stay until no canvas has the bitmap any
 * more; others may change them between calls.
 * @param bits the first byte of the top-left pixel, a multiple of 4; null is refused
 * @param width pixels in a row, positive
 * @param height rows, positive
 * @param stride bytes from one row to the next, a multiple of 4; a row must fit into it
 * @return the bitmap, which velBitmapDestroy gives up; null when an argument is refused or memory is short */
VELGRAPHIC_API velBitmap *velBitmapCreateFromData(void *bits, LONG width, LONG height, LONG stride);

/** Gives up the caller's reference. A canvas that has the bitmap keeps it.
 * @param bitmap the bitmap; null is refused, and does no harm */
VELGRAPHIC_API int velBitmapDestroy(velBitmap *bitmap);

/** Lets the canvas draw on a bitmap, of which it keeps a reference, in place of the one before. The state stays.
 * @param bitmap the bitmap; null is refused: a canvas can't be without one again */
VELGRAPHIC_API int velCanvasSetBitmap(velCanvas *canvas, velBitmap *bitmap);

/** Describes the pixels of the canvas's bitmap. What has been drawn is there; nothing is locked.
 * @param reserved not used; null
 * @param out where the description is written; null is refused
 * @return 1; 0, with nothing written, when a pointer is refused and without a bitmap */
VELGRAPHIC_API int velCanvasLockBits(velCanvas *canvas, const RECT *reserved, velBitmapData *out);

/** Ends the use of what velCanvasLockBits described.
 * @param reserved not used; null
 * @return 1; 0 for a null canvas and without a bitmap */
VELGRAPHIC_API int velCanvasUnlockBits(velCanvas *canvas, const RECT *reserved);

/** @} */

/** @defgroup vel_state State
 * How a canvas draws. Each setting lasts until it is changed.
 *
 * @param canvas the canvas; null is refused
 * @return 1; 0, with nothing changed, when an argument is refused
 * @ingroup velgraphic
 * @{ */

/** Puts the state (everything set by the functions of this section and the font, clip and translation included) on the
 * canvas's stack.
 * @return 1; 0 when an argument is refused and when memory is short */
VELGRAPHIC_API int velCanvasSave(velCanvas *canvas);

/** Goes back to the state last saved, and takes it off the stack.
 * @return 1; 0 when an argument is refused and when no state is saved */
VELGRAPHIC_API int velCanvasRestore(velCanvas *canvas);

/** Confines drawing to the rectangle as well as to what it was confined to before; only velCanvasRestore widens it. The
 * rectangle is moved by the present translation and rounded to whole pixels; an empty or inverted one leaves nothing.
 * @param left the first column, pixels
 * @param top the first row, pixels
 * @param right the column after the last, pixels
 * @param bottom the row after the last, pixels
 * @return 1; 0 for a null canvas */
VELGRAPHIC_API int velCanvasClipRect(velCanvas *canvas, int left, int top, int right, int bottom);

/** Adds to the translation of everything that is drawn or clipped from now on.
 * @param x pixels to the right, finite
 * @param y pixels down, finite */
VELGRAPHIC_API int velCanvasTranslate(velCanvas *canvas, float x, float y);

/** Sets how shapes and paths are drawn.
 * @param style VEL_STYLE_STROKE ... VEL_STYLE_GRADIENT_STROKE */
VELGRAPHIC_API int velCanvasSetDrawStyle(velCanvas *canvas, DWORD style);

/** Sets the colour of the styles without gradient, of lines and of text.
 * @param colour straight 0xAARRGGBB */
VELGRAPHIC_API int velCanvasSetColor(velCanvas *canvas, DWORD colour);

/** Sets whether edges are anti-aliased.
 * @param on 0 for not; anything else for smooth edges */
VELGRAPHIC_API int velCanvasSetSmooth(velCanvas *canvas, int on);

/** Sets how what is drawn meets what is there.
 * @param mode VEL_BLEND_SOURCE_OVER ... VEL_BLEND_EXCLUSION */
VELGRAPHIC_API int velCanvasSetBlendMode(velCanvas *canvas, DWORD mode);

/** The blend mode.
 * @return VEL_BLEND_...; 0xFFFFFFFF for a null canvas */
VELGRAPHIC_API DWORD velCanvasGetBlendMode(velCanvas *canvas);

/** Sets the opacity by which the alpha of everything drawn is scaled.
 * @param value 0 for invisible to 255 for full strength; more is refused */
VELGRAPHIC_API int velCanvasSetBlendValue(velCanvas *canvas, DWORD value);

/** The opacity of everything drawn.
 * @return 0 to 255; 255 for a null canvas */
VELGRAPHIC_API DWORD velCanvasGetBlendValue(velCanvas *canvas);

/** Sets the ends of open strokes and of dashes.
 * @param cap VEL_CAP_BUTT, VEL_CAP_ROUND or VEL_CAP_SQUARE */
VELGRAPHIC_API int velCanvasSetStrokeCap(velCanvas *canvas, DWORD cap);

/** Sets the corners of strokes.
 * @param join VEL_JOIN_MITER, VEL_JOIN_ROUND or VEL_JOIN_BEVEL */
VELGRAPHIC_API int velCanvasSetStrokeJoin(velCanvas *canvas, DWORD join);

/** Sets the gradient of the two gradient styles. The canvas keeps a reference of its own; stops added later show as
 * well.
 * @param gradient the gradient; null is refused
 * @see velCanvasSetDrawStyle */
VELGRAPHIC_API int velCanvasSetGradient(velCanvas *canvas, velGradient *gradient);

/** Sets the width of strokes.
 * @param width 0 to 32767 pixels; a stroke of width 0 draws nothing */
VELGRAPHIC_API int velCanvasSetStrokeWidth(velCanvas *canvas, float width);

/** The width of strokes.
 * @return pixels; 1 for a null canvas */
VELGRAPHIC_API float velCanvasGetStrokeWidth(velCanvas *canvas);

/** Sets how strokes are dashed.
 * @param style VEL_DASH_SOLID ... VEL_DASH_PATTERN */
VELGRAPHIC_API int velCanvasSetDashStyle(velCanvas *canvas, DWORD style);

/** Sets the pattern of VEL_DASH_PATTERN; the dash style is not changed. An odd number of lengths is gone through with
 * on and off exchanged every other time.
 * @param lengths how long a stroke is on, off, on ...: 0 to 32767 pixels each, not all of them 0; they are copied; null
 * is refused
 * @param count how many lengths there are, 1 to 10,000
 * @param offset how far into the pattern a stroke begins, pixels
 * @return 1; 0, with nothing changed, when an argument is refused and when memory is short */
VELGRAPHIC_API int velCanvasSetDashPattern(velCanvas *canvas, const float *lengths, int count, float offset);

/** Sets the family that the glyphs of text come from. Whether there is such a family shows when the font is used; one
 * that is missing is looked for again after some seconds.
 * @param name the family's name, at most 31 UTF-16 units and a zero; or "sans-serif", "serif", "monospace" or
 * "system-ui" for what the system has for them; null or empty for the font of the system's user interface, as at first
 * @return 1; 0, with nothing changed, when an argument is refused, also for a longer name */
VELGRAPHIC_API int velCanvasSetFontFaceName(velCanvas *canvas, const WCHAR *name);

/** Sets weight, slant and bars of text.
 * @param bits VEL_FONT_..., added up; 0 for none; others are refused */
VELGRAPHIC_API int velCanvasSetFontStyle(velCanvas *canvas, DWORD bits);

/** Sets the size of text: that of the em square.
 * @param pixels above 0, up to 32767 */
VELGRAPHIC_API int velCanvasSetTextSize(velCanvas *canvas, float pixels);

/** @} */

/** @defgroup vel_shapes Shapes
 * Drawn by the canvas's state, with its translation, inside its clip.
 *
 * @param canvas the canvas; null is refused
 * @param x the left edge, pixels
 * @param y the top edge, pixels
 * @param width pixels; negative is refused
 * @param height pixels; negative is refused
 * @param centreX the centre, pixels
 * @param centreY the centre, pixels
 * @param radiusX half the width, pixels; negative is refused
 * @param radiusY half the height, pixels; negative is refused
 * @param startAngle where the arc begins, degrees clockwise from the right
 * @param sweepAngle how far it goes, degrees, negative for counter-clockwise; 360 and more, either way, is the whole
 * ellipse
 * @return 1, also when nothing of it can be seen; 0, with nothing drawn, when an argument is refused, without a bitmap,
 * when the style asks for a gradient and there is none, when memory is short, and for a figure that would take too long
 * @ingroup velgraphic
 * @{ */

/** Draws a dot as wide as the stroke, in every style. It is round with round caps, square with the others.
 * @param x its centre, pixels
 * @param y its centre, pixels */
VELGRAPHIC_API int velCanvasDrawPoint(velCanvas *canvas, float x, float y);

/** Draws a line, stroked in every style.
 * @param x0 where it begins, pixels
 * @param y0 where it begins, pixels
 * @param x1 where it ends, pixels
 * @param y1 where it ends, pixels */
VELGRAPHIC_API int velCanvasDrawLine(velCanvas *canvas, float x0, float y0, float x1, float y1);

/** Draws a rectangle. */
VELGRAPHIC_API int velCanvasDrawRectangle(velCanvas *canvas, float x, float y, float width, float height);

/** Draws a rectangle whose corners are quarters of ellipses.
 * @param radiusX the width of a corner, pixels, cut to half the rectangle's; negative is refused
 * @param radiusY the height of a corner, pixels, cut to half the rectangle's; negative is refused */
VELGRAPHIC_API int velCanvasDrawRoundRect(velCanvas *canvas, float x, float y, float width, float height, float radiusX,
                                          float radiusY);

/** Draws a circle.
 * @param radius pixels; negative is refused */
VELGRAPHIC_API int velCanvasDrawCircle(velCanvas *canvas, float centreX, float centreY, float radius);

/** Draws part of the ellipse in a rectangle.
 * @param useCentre 0 for an open arc, which fills the segment that its chord cuts off; otherwise the closed pie */
VELGRAPHIC_API int velCanvasDrawArc(velCanvas *canvas, float x, float y, float width, float height, float startAngle,
                                    float sweepAngle, int useCentre);

/** Draws an ellipse. */
VELGRAPHIC_API int velCanvasDrawEllipse(velCanvas *canvas, float centreX, float centreY, float radiusX, float radiusY);

/** Colours everything within the clip. Blend mode and value apply; style and colour of the state play no part.
 * @param colour straight 0xAARRGGBB
 * @return 1; 0, with nothing drawn, when an argument is refused, without a bitmap and when memory is short */
VELGRAPHIC_API int velCanvasDrawColor(velCanvas *canvas, DWORD colour);

/** Draws a path by the style. Its fill type counts when it is filled.
 * @param path the path, which stays the caller's; null is refused */
VELGRAPHIC_API int velCanvasDrawPath(velCanvas *canvas, velPath *path);

/** @} */

/** @defgroup vel_text Text
 * The glyphs of a call are filled together with the bars of the font's style, in the colour or the gradient of the
 * style: nothing is darker where they overlap. Smooth text of at most 256 pixels stands in whole rows and at quarters
 * of columns, those nearest to its positions after the translation, and is drawn through masks that all canvases
 * share; other text stands where it is put, and its outlines are filled, as are those of glyphs of which a call has
 * more than 32 MiB of masks that are not there yet.
 *
 * A run is one line of text from a string. It is shaped: kerning, ligatures, marks, joining scripts. Its direction is
 * that of the first strong character, and mixed directions are ordered by the Unicode algorithm. Control characters and
 * line ends draw nothing; a tab is four spaces wide. What the font lacks comes from other fonts; only what none has is
 * the missing-glyph box.
 *
 * @param canvas the canvas, whose font is used; null is refused
 * @param text the text in UTF-16; null when there is none, with the length 0
 * @param length UTF-16 units, 0 to 65,535; -1 for up to the terminating zero, which may not come later
 * @return 1; 0, with nothing written, when an argument is refused, when there is no such font and when memory is short
 * @ingroup velgraphic
 * @{ */

/** Draws glyphs of the canvas's font. A glyph that the font lacks draws nothing.
 * @param glyphs the font's own indices; null is refused
 * @param count how many there are, 0 and more
 * @param positions the origin of each glyph on the baseline, pixels; null is refused
 * @return 1, also when nothing of it can be seen; 0, with nothing drawn, when an argument is refused, without a bitmap,
 * when the style asks for a gradient and there is none, for text that is too far away, when there is no such font, when
 * memory is short, and when outlines that are filled have more than 1,000,000 lines and curves inside the clip
 * @see velCanvasGetTextGlyphs */
VELGRAPHIC_API int velCanvasDrawPosTextByGlyphs(velCanvas *canvas, const WORD *glyphs, int count,
                                                const velPointF *positions);

/** The glyph of each unit of a text and how far the next one is away, without shaping. Units that the font lacks, and
 * halves of surrogate pairs, give glyph 0. Needs no bitmap.
 * @param text the text in UTF-16; null is refused
 * @param length UTF-16 units, 0 and more
 * @param glyphs where `length` glyphs are written; null is refused
 * @param advances where `length` distances are written, pixels, each y being 0; null when they are not wanted
 * @return 1; 0, with nothing written, when an argument is refused and when there is no such font
 * @see velCanvasGetTextGlyphs */
VELGRAPHIC_API int velCanvasGetGlyphs(velCanvas *canvas, const WCHAR *text, int length, WORD *glyphs,
                                      velPointF *advances);

/** Draws a run of text in the colour or the gradient of the style.
 * @param x the origin of its baseline, pixels: the left end, in all directions
 * @param y the baseline, pixels
 * @return 1, also when nothing of it can be seen; 0, with nothing drawn, when an argument is refused, without a bitmap,
 * when the style asks for a gradient and there is none, for text that is too far away, when there is no such font, when
 * memory is short, and when outlines that are filled have more than 1,000,000 lines and curves inside the clip
 * @see velCanvasMeasureTextRun */
VELGRAPHIC_API int velCanvasDrawTextRun(velCanvas *canvas, const WCHAR *text, int length, float x, float y);

/** Measures what velCanvasDrawTextRun would draw. Needs no bitmap.
 * @param out where the measures are written; null is refused */
VELGRAPHIC_API int velCanvasMeasureTextRun(velCanvas *canvas, const WCHAR *text, int length, velTextExtent *out);

/** The glyphs of a run, shaped with the canvas's own font alone. They go from left to right. Needs no bitmap.
 * @param glyphs where at most `capacity` glyphs are written; null is refused unless that is 0
 * @param positions where as many positions are written, pixels from the origin of the run; null is refused unless the
 * capacity is 0
 * @param capacity how many of each there is room for, 0 and more
 * @return how many glyphs there are, also beyond the capacity; 0 when there are none, and when it is refused
 * @see velCanvasDrawPosTextByGlyphs */
VELGRAPHIC_API int velCanvasGetTextGlyphs(velCanvas *canvas, const WCHAR *text, int length, WORD *glyphs,
                                          velPointF *positions, int capacity);

/** Measures of the canvas's font at its size. Needs no bitmap.
 * @param ascent how far it reaches above the baseline, pixels, positive; null when that is not wanted
 * @param descent how far it reaches below the baseline, pixels, positive; null when that is not wanted
 * @param lineHeight the distance of two baselines, pixels; null when that is not wanted
 * @return 1; 0, with nothing written, when an argument is refused and when there is no such font */
VELGRAPHIC_API int velCanvasGetFontMetrics(velCanvas *canvas, float *ascent, float *descent, float *lineHeight);

/** @} */

/** @defgroup vel_paths Paths
 * Figures of lines and curves, for velCanvasDrawPath. Without a present point, a line or curve begins a figure at the
 * first point given to it.
 *
 * @param path the path; null is refused
 * @param x the left edge, pixels
 * @param y the top edge, pixels
 * @param width pixels; negative is refused
 * @param height pixels; negative is refused
 * @param centreX the centre, pixels
 * @param centreY the centre, pixels
 * @param radiusX half the width, pixels; negative is refused
 * @param radiusY half the height, pixels; negative is refused
 * @param startAngle where the arc begins, degrees clockwise from the right
 * @param sweepAngle how far it goes, degrees, negative for counter-clockwise; more than 360 either way counts as 360
 * @return 1; 0, with the path as it was, when an argument is refused and when memory is short
 * @ingroup velgraphic
 * @{ */

/** A new, empty path with the fill type VEL_FILL_WINDING.
 * @return the path, which velPathDestroy gives up; null when memory is short */
VELGRAPHIC_API velPath *velPathCreate(void);

/** Destroys a path.
 * @param path the path; null is refused, and does no harm
 * @return 1; 0 for a null path */
VELGRAPHIC_API int velPathDestroy(velPath *path);

/** Empties the path. The fill type stays.
 * @return 1; 0 for a null path */
VELGRAPHIC_API int velPathBegin(velPath *path);

/** Adds a straight line back to where the figure began, and ends it.
 * @return 1; 0, with the path as it was, for a null path, without a present point and when memory is short */
VELGRAPHIC_API int velPathClose(velPath *path);

/** Sets which points the path encloses.
 * @param type VEL_FILL_WINDING or VEL_FILL_EVEN_ODD
 * @return 1; 0, with nothing changed, for a null path and another type */
VELGRAPHIC_API int velPathSetFillType(velPath *path, DWORD type);

/** Begins a figure at a point.
 * @param x the point, pixels
 * @param y the point, pixels */
VELGRAPHIC_API int velPathMoveTo(velPath *path, float x, float y);

/** Adds a line from the present point.
 * @param x where it ends, pixels
 * @param y where it ends, pixels */
VELGRAPHIC_API int velPathLineTo(velPath *path, float x, float y);

/** Adds part of the ellipse in a rectangle.
 * @param forceMoveTo 0 for a line from the present point to where the arc begins; otherwise the arc is a new figure */
VELGRAPHIC_API int velPathArcTo(velPath *path, float x, float y, float width, float height, float startAngle,
                                float sweepAngle, int forceMoveTo);

/** Adds an arc from the present point along a turned ellipse: the elliptical arc of SVG path data. Radii too small for
 * the distance are enlarged in proportion; with a radius of 0 the arc is a line.
 * @param xAxisRotation how far the ellipse is turned, degrees clockwise
 * @param largeArc 0 for the arc below 180 degrees, otherwise the other one
 * @param clockwise 0 for the arc that goes counter-clockwise, otherwise the clockwise one
 * @param x where it ends, pixels
 * @param y where it ends, pixels */
VELGRAPHIC_API int velPathOvalCurveTo(velPath *path, float radiusX, float radiusY, float xAxisRotation, int largeArc,
                                      int clockwise, float x, float y);

/** Adds a cubic curve from the present point.
 * @param x1 the first control point, pixels
 * @param y1 the first control point, pixels
 * @param x2 the second control point, pixels
 * @param y2 the second control point, pixels
 * @param x3 where it ends, pixels
 * @param y3 where it ends, pixels */
VELGRAPHIC_API int velPathBezierCurveTo(velPath *path, float x1, float y1, float x2, float y2, float x3, float y3);

/** Adds a quadratic curve from the present point.
 * @param x1 the control point, pixels
 * @param y1 the control point, pixels
 * @param x2 where it ends, pixels
 * @param y2 where it ends, pixels */
VELGRAPHIC_API int velPathQuadraticCurveTo(velPath *path, float x1, float y1, float x2, float y2);

/** Adds part of the ellipse in a rectangle as an open figure of its own. */
VELGRAPHIC_API int velPathAddArc(velPath *path, float x, float y, float width, float height, float startAngle,
                                 float sweepAngle);

/** Adds a rectangle as a closed figure of its own. */
VELGRAPHIC_API int velPathAddRectangle(velPath *path, float x, float y, float width, float height);

/** Adds a circle as a closed figure of its own.
 * @param radius pixels; negative is refused */
VELGRAPHIC_API int velPathAddCircle(velPath *path, float centreX, float centreY, float radius);

/** Adds an ellipse as a closed figure of its own. */
VELGRAPHIC_API int velPathAddEllipse(velPath *path, float centreX, float centreY, float radiusX, float radiusY);

/** The smallest rectangle around all lines and curves; all 0 for an empty path. Stroke widths play no part.
 * @param out where the rectangle is written, pixels; null is refused
 * @return 1; 0, with nothing written, when a pointer is refused */
VELGRAPHIC_API int velPathGetBounds(velPath *path, velRectF *out);

/** @} */

/** @defgroup vel_gradients Gradients
 * Colours for the gradient styles. Their points move with the canvas's translation. Before the first stop and after the
 * last, their colours go on.
 *
 * @param gradient the gradient; null is refused
 * @return 1; 0, with nothing changed, when an argument is refused
 * @ingroup velgraphic
 * @{ */

/** A new gradient along a line, without stops.
 * @param x0 the place of offset 0, pixels
 * @param y0 the place of offset 0, pixels
 * @param x1 the place of offset 1, pixels
 * @param y1 the place of offset 1, pixels
 * @return the gradient, which velGradientDestroy gives up; null when a number is not finite or memory is short
 * @see velGradientAddColorStop, velCanvasSetGradient */
VELGRAPHIC_API velGradient *velGradientCreateLinear(float x0, float y0, float x1, float y1);

/** A new gradient outwards from a point, without stops.
 * @param centreX the place of offset 0, pixels
 * @param centreY the place of offset 0, pixels
 * @param radius the circle of offset 1, pixels; positive
 * @return the gradient, which velGradientDestroy gives up; null when a number is not finite, the radius is not positive
 * or memory is short
 * @see velGradientAddColorStop, velCanvasSetGradient */
VELGRAPHIC_API velGradient *velGradientCreateRadial(float centreX, float centreY, float radius);

/** Adds a colour. Two stops at one place, in the order in which they came, are a sharp edge.
 * @param offset 0 at the first point or the centre, 1 at the second or the circle; outside of these it is refused
 * @param colour straight 0xAARRGGBB
 * @return 1; 0, with nothing changed, when an argument is refused, beyond 100,000 stops and when memory is short */
VELGRAPHIC_API int velGradientAddColorStop(velGradient *gradient, float offset, DWORD colour);

/** Gives up the caller's reference. A canvas that has the gradient keeps it.
 * @param gradient the gradient; null is refused, and does no harm */
VELGRAPHIC_API int velGradientDestroy(velGradient *gradient);

/** @} */

/** @defgroup vel_animations Animations
 * Lottie animations, frame by frame. A library built without an animation renderer refuses to load any.
 *
 * @param lottie the animation; null is refused
 * @return 1; 0 when an argument is refused
 * @ingroup velgraphic
 * @{ */

/** A new animation from Lottie JSON. Pictures in it are left out.
 * @param json the text in UTF-8, which need not stay; null is refused
 * @param length bytes, at most 32 MiB
 * @return the animation, which velLottieDestroy gives up; null when the text is malformed, when it would take beyond
 * reason to load (more memory than 32 MiB and 8 bytes per byte, or more than 100,000 layers and shapes with all copies
 * and uses of compositions), when it has no frames or more than 1,000,000, or no size or one beyond 32767 pixels, and
 * when memory is short
 * @see velLottieLastError */
VELGRAPHIC_API velLottie *velLottieCreateFromData(const char *json, size_t length);

/** A new animation from a file of Lottie JSON.
 * @param utf8Path its path in UTF-8, on every system; null is refused
 * @return as of velLottieCreateFromData; null also when the file can't be read
 * @see velLottieLastError */
VELGRAPHIC_API velLottie *velLottieCreateFromFile(const char *utf8Path);

/** Why the last load or draw of an animation that was refused on this thread was.
 * @return a sentence in English, which stays valid and which nobody frees; empty when none was; never null */
VELGRAPHIC_API const char *velLottieLastError(void);

/** Writes an animation's size, number of frames and speed.
 * @param out where they are written; null is refused
 * @return 1; 0, with nothing written, when a pointer is refused */
VELGRAPHIC_API int velLottieGetInfo(velLottie *lottie, velLottieInfo *out);

/** Destroys an animation.
 * @param lottie the animation; null is refused, and does no harm
 * @return 1; 0 for a null animation */
VELGRAPHIC_API int velLottieDestroy(velLottie *lottie);

/** Draws a frame, stretched to a rectangle. Its edges are rounded to whole pixels; blend mode and value apply. A frame
 * of more than 8192 pixels a side, or one that reaches so far beyond its sides that the renderer's numbers cannot hold
 * it, is rendered smaller and enlarged.
 * @param canvas the canvas; null is refused
 * @param frame the frame's number from 0 on, fractions dropped; beyond the ends the first or the last one
 * @param x the left edge, pixels
 * @param y the top edge, pixels
 * @param width 0 to 32767 pixels
 * @param height 0 to 32767 pixels
 * @return 1, also when nothing of it can be seen; 0, with nothing drawn, when an argument is refused, without a bitmap,
 * more than 1,000,000 pixels from the origin, when memory is short, and for a frame that would take more than 256 MiB
 * beside its own pixels, more than 100,000 shapes or 2 million points, or seconds
 * @see velLottieLastError */
VELGRAPHIC_API int velLottieDraw(velCanvas *canvas, velLottie *lottie, float frame, float x, float y, float width,
                                 float height);

/** @} */

#ifdef __cplusplus
}
#endif

#endif
