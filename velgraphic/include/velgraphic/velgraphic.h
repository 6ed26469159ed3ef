/* velGraphic: anti-aliased vector drawing into the pixels of somebody else: lines, shapes, paths, gradients, glyph runs
 * and frames of Lottie animations. It is the companion of the Lacquer raster library and can be used without it.
 *
 * Conventions, unless a declaration says otherwise:
 *
 * - Results: 1 for done and 0 for refused, or an object that is null on failure. A null object, a null pointer where a
 *   record is required, a number that is infinite or not a number, and a value outside its table are refused: the
 *   result is 0, nothing is drawn or changed, and the object works on as before. Nothing is thrown or printed.
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
 * - Colours are straight 0xAARRGGBB. Pixels are premultiplied words 0xAARRGGBB, in memory blue, green, red, alpha.
 *
 * - Threads: any thread may call any function; one thread at a time works on a canvas, path, gradient or animation.
 *
 * The header compiles as C11 and as C++17. On Windows the types come from <windows.h>.
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
#define VELGRAPHIC_API __attribute__((visibility("default")))
#endif

typedef struct velCanvas velCanvas;     /* what draws: a state, a stack of saved states, and a bitmap to draw on */
typedef struct velBitmap velBitmap;     /* a description of pixels that belong to the caller */
typedef struct velPath velPath;         /* figures of lines and curves */
typedef struct velGradient velGradient; /* colours along a line or outwards from a point */
typedef struct velLottie velLottie;     /* an animation */

typedef struct velPointF {
    float x, y;
} velPointF;

typedef struct velRectF {
    float left, top, right, bottom;
} velRectF;

/* Pixels: the size, the bytes from one row to the next, and the first byte of the top-left pixel (at offset 16). */
typedef struct velBitmapData {
    LONG width, height, stride;
    void *bits;
} velBitmapData;

/* How large a run of text is, in pixels: how far from its origin the next one would begin, how far the fonts used reach
 * above and below the baseline (positive), the distance of two baselines, and the rectangle around the pixels that it
 * would touch, from a baseline origin at a whole pixel; all 0 when it would touch none. */
typedef struct velTextExtent {
    float advance;
    float ascent, descent, lineHeight;
    velRectF ink;
} velTextExtent;

/* An animation's own size in pixels, its number of frames, and its frames per second. */
typedef struct velLottieInfo {
    LONG width, height;
    float frameCount, frameRate;
} velLottieInfo;

/* How shapes and paths are drawn. */
enum {
    VEL_STYLE_STROKE = 0,
    VEL_STYLE_FILL = 1, /* initial */
    VEL_STYLE_GRADIENT_FILL = 2,
    VEL_STYLE_GRADIENT_STROKE = 3
};

/* How what is drawn meets what is there: the Porter-Duff operators and the separable blend modes. SOURCE_IN,
 * DESTINATION_IN, SOURCE_OUT and DESTINATION_ATOP change pixels where nothing is drawn, too, wherever the clip allows.
 */
enum {
    VEL_BLEND_SOURCE_OVER = 0, /* initial */
    VEL_BLEND_SOURCE = 1,
    VEL_BLEND_CLEAR = 2,
    VEL_BLEND_DESTINATION_OVER = 3,
    VEL_BLEND_SOURCE_IN = 4,
    VEL_BLEND_DESTINATION_IN = 5,
    VEL_BLEND_SOURCE_OUT = 6,
    VEL_BLEND_DESTINATION_OUT = 7,
    VEL_BLEND_SOURCE_ATOP = 8,
    VEL_BLEND_DESTINATION_ATOP = 9,
    VEL_BLEND_XOR = 10,
    VEL_BLEND_PLUS = 11,
    VEL_BLEND_MULTIPLY = 12,
    VEL_BLEND_SCREEN = 13,
    VEL_BLEND_OVERLAY = 14,
    VEL_BLEND_DARKEN = 15,
    VEL_BLEND_LIGHTEN = 16,
    VEL_BLEND_COLOR_DODGE = 17,
    VEL_BLEND_COLOR_BURN = 18,
    VEL_BLEND_HARD_LIGHT = 19,
    VEL_BLEND_SOFT_LIGHT = 20,
    VEL_BLEND_DIFFERENCE = 21,
    VEL_BLEND_EXCLUSION = 22
};

/* The ends of open strokes and of dashes. */
enum {
    VEL_CAP_BUTT = 0, /* initial */
    VEL_CAP_ROUND = 1,
    VEL_CAP_SQUARE = 2
};

/* The corners of strokes. A corner sharper than about 11 degrees is bevelled instead of mitred. */
enum {
    VEL_JOIN_MITER = 0, /* initial */
    VEL_JOIN_ROUND = 1,
    VEL_JOIN_BEVEL = 2
};

/* How strokes are dashed: lengths on and off in multiples of the stroke width. */
enum {
    VEL_DASH_SOLID = 0,        /* initial */
    VEL_DASH_DASH = 1,         /* 3 1 */
    VEL_DASH_DOT = 2,          /* 1 1 */
    VEL_DASH_DASH_DOT = 3,     /* 3 1 1 1 */
    VEL_DASH_DASH_DOT_DOT = 4, /* 3 1 1 1 1 1 */
    VEL_DASH_PATTERN = 5       /* the pattern of velCanvasSetDashPattern, in pixels; solid as long as there is none */
};

/* Which points a path encloses: those that it winds around, or that it winds around an odd number of times. */
enum {
    VEL_FILL_WINDING = 0, /* initial */
    VEL_FILL_EVEN_ODD = 1
};

/* Bits of a font style. Bold and italic are synthesised where the family has no such face. */
enum { VEL_FONT_BOLD = 0x1, VEL_FONT_ITALIC = 0x2, VEL_FONT_UNDERLINE = 0x4, VEL_FONT_STRIKE_OUT = 0x8 };

#ifdef __cplusplus
extern "C" {
#endif

/* ---- Canvases and bitmaps -------------------------------------------------------------------------------------- */

/* A canvas without a bitmap, in the initial state: fill with opaque black, source over, blend value 255, smooth, stroke
 * width 1, butt caps, miter joins, solid, no gradient, the font of the system's user interface, text size 16, no
 * translation, nothing clipped. */
VELGRAPHIC_API velCanvas *velCanvasCreate(void);

/* Gives up the canvas with what it refers to. */
VELGRAPHIC_API int velCanvasDestroy(velCanvas *canvas);

/* Describes `width` x `height` pixels at `bits`, rows `stride` bytes apart; nothing is copied. The pixels must stay
 * until no canvas has the bitmap any more, and others may change them between calls. Null unless width and height are
 * positive, bits and stride are multiples of 4, and a row fits in the stride. */
VELGRAPHIC_API velBitmap *velBitmapCreateFromData(void *bits, LONG width, LONG height, LONG stride);

/* Gives up the caller's reference; a canvas that has the bitmap keeps it. */
VELGRAPHIC_API int velBitmapDestroy(velBitmap *bitmap);

/* Lets the canvas draw on a bitmap, of which it keeps a reference, in place of the one before. The state stays. */
VELGRAPHIC_API int velCanvasSetBitmap(velCanvas *canvas, velBitmap *bitmap);

/* Describes the pixels of the canvas's bitmap. `reserved` is not used. 0 when there is no bitmap. */
VELGRAPHIC_API int velCanvasLockBits(velCanvas *canvas, const RECT *reserved, velBitmapData *out);

/* Ends the use of what velCanvasLockBits described. 0 when there is no bitmap. */
VELGRAPHIC_API int velCanvasUnlockBits(velCanvas *canvas, const RECT *reserved);

/* ---- State ----------------------------------------------------------------------------------------------------- */

/* Puts the state (everything set by the functions of this section, clip and translation included) on the canvas's
 * stack. 0 when memory is short. */
VELGRAPHIC_API int velCanvasSave(velCanvas *canvas);

/* Goes back to the state last saved. 0 when there is none. */
VELGRAPHIC_API int velCanvasRestore(velCanvas *canvas);

/* Confines drawing to the rectangle as well as to what it was confined to before. The rectangle is moved by the present
 * translation and rounded to whole pixels; right and bottom are exclusive; an empty or inverted one leaves nothing. */
VELGRAPHIC_API int velCanvasClipRect(velCanvas *canvas, int left, int top, int right, int bottom);

/* Adds to the translation of everything that is drawn or clipped from now on. */
VELGRAPHIC_API int velCanvasTranslate(velCanvas *canvas, float x, float y);

VELGRAPHIC_API int velCanvasSetDrawStyle(velCanvas *canvas, DWORD style);
VELGRAPHIC_API int velCanvasSetColor(velCanvas *canvas, DWORD colour);

/* Anti-aliasing on (anything but 0) or off. */
VELGRAPHIC_API int velCanvasSetSmooth(velCanvas *canvas, int on);

VELGRAPHIC_API int velCanvasSetBlendMode(velCanvas *canvas, DWORD mode);

/* 0xFFFFFFFF for a null canvas. */
VELGRAPHIC_API DWORD velCanvasGetBlendMode(velCanvas *canvas);

/* The opacity, 0 to 255, by which the alpha of everything drawn is scaled. */
VELGRAPHIC_API int velCanvasSetBlendValue(velCanvas *canvas, DWORD value);

/* 255 for a null canvas. */
VELGRAPHIC_API DWORD velCanvasGetBlendValue(velCanvas *canvas);

VELGRAPHIC_API int velCanvasSetStrokeCap(velCanvas *canvas, DWORD cap);
VELGRAPHIC_API int velCanvasSetStrokeJoin(velCanvas *canvas, DWORD join);

/* The gradient of the two gradient styles. The canvas keeps a reference of its own; stops added later show as well. */
VELGRAPHIC_API int velCanvasSetGradient(velCanvas *canvas, velGradient *gradient);

/* 0 to 32767 pixels; a stroke of width 0 draws nothing. */
VELGRAPHIC_API int velCanvasSetStrokeWidth(velCanvas *canvas, float width);

/* 1 for a null canvas. */
VELGRAPHIC_API float velCanvasGetStrokeWidth(velCanvas *canvas);

VELGRAPHIC_API int velCanvasSetDashStyle(velCanvas *canvas, DWORD style);

/* The pattern of VEL_DASH_PATTERN: 1 to 10,000 lengths of 0 to 32767 pixels, on and off in turn, not all of them 0, and
 * how far into the pattern a stroke begins. An odd number of lengths is gone through with on and off exchanged every
 * other time. The style is not changed. */
VELGRAPHIC_API int velCanvasSetDashPattern(velCanvas *canvas, const float *lengths, int count, float offset);

/* The family that the glyphs of text come from: at most 31 UTF-16 units and a zero; null or empty for the font of the
 * system's user interface, as at first. "sans-serif", "serif", "monospace" and "system-ui" stand for what the system
 * has for them. Whether there is such a family shows when the font is used; one that is missing is looked for again
 * after some seconds. */
VELGRAPHIC_API int velCanvasSetFontFaceName(velCanvas *canvas, const WCHAR *name);

VELGRAPHIC_API int velCanvasSetFontStyle(velCanvas *canvas, DWORD bits);

/* The size of the em square: above 0, up to 32767 pixels. */
VELGRAPHIC_API int velCanvasSetTextSize(velCanvas *canvas, float pixels);

/* ---- Drawing ------------------------------------------------------------------------------------------------------
 * Everywhere 0 when the canvas has no bitmap, or the style asks for a gradient and there is none. */

/* A dot as wide as the stroke, around (x, y): round with round caps, square with the others. */
VELGRAPHIC_API int velCanvasDrawPoint(velCanvas *canvas, float x, float y);

/* Stroked in every style. */
VELGRAPHIC_API int velCanvasDrawLine(velCanvas *canvas, float x0, float y0, float x1, float y1);

/* Negative widths, heights and radii are refused, here and below. */
VELGRAPHIC_API int velCanvasDrawRectangle(velCanvas *canvas, float x, float y, float width, float height);

/* The corners are quarters of ellipses, at most half as wide and as high as the rectangle. */
VELGRAPHIC_API int velCanvasDrawRoundRect(velCanvas *canvas, float x, float y, float width, float height, float radiusX,
                                          float radiusY);

VELGRAPHIC_API int velCanvasDrawCircle(velCanvas *canvas, float centreX, float centreY, float radius);

/* Part of the ellipse in the rectangle. Without the centre an open arc, which fills the segment that its chord cuts
 * off; with it the closed pie. A sweep of 360 degrees and more, either way, is the whole ellipse. */
VELGRAPHIC_API int velCanvasDrawArc(velCanvas *canvas, float x, float y, float width, float height, float startAngle,
                                    float sweepAngle, int useCentre);

VELGRAPHIC_API int velCanvasDrawEllipse(velCanvas *canvas, float centreX, float centreY, float radiusX, float radiusY);

/* Colours everything within the clip, by the blend mode and value; the style plays no part. */
VELGRAPHIC_API int velCanvasDrawColor(velCanvas *canvas, DWORD colour);

VELGRAPHIC_API int velCanvasDrawPath(velCanvas *canvas, velPath *path);

/* ---- Text ---------------------------------------------------------------------------------------------------------
 * The glyphs of a call are filled together with the bars of the font's style, in the colour or the gradient of the
 * style: nothing is darker where they overlap. Smooth text of at most 256 pixels stands in whole rows and at quarters
 * of columns, those nearest to its positions after the translation; other text stands where it is put. 0 when there is
 * no such font, when memory is short, and when the outlines of text of more than 256 pixels, or of some thousand
 * different glyphs that are nearly as large, have more than 1,000,000 lines and curves inside the clip. */

/* Draws `count` glyphs. They are the font's own indices; their positions are the origins on the baseline. A glyph that
 * the font lacks draws nothing. */
VELGRAPHIC_API int velCanvasDrawPosTextByGlyphs(velCanvas *canvas, const WORD *glyphs, int count,
                                                const velPointF *positions);

/* For each of `length` UTF-16 units the glyph and how far the next one is away, in pixels. Units that the font lacks,
 * and halves of surrogate pairs, give glyph 0. `advances` may be null. 0 when there is no such font. */
VELGRAPHIC_API int velCanvasGetGlyphs(velCanvas *canvas, const WCHAR *text, int length, WORD *glyphs,
                                      velPointF *advances);

/* ---- Text from a string -------------------------------------------------------------------------------------------
 * A run is one line of `length` UTF-16 units, at most 65,535 (-1: up to the terminating zero; null when there are
 * none). It is shaped: kerning, ligatures, marks, joining scripts. Its direction is that of the first strong character,
 * and mixed directions are ordered by the Unicode algorithm. Control characters and line ends draw nothing; a tab is
 * four spaces wide. What the font lacks comes from other fonts; only what none has is the missing-glyph box. 0 when
 * there is no such font, and when memory is short. */

/* Draws a run with the origin of its baseline at (x, y), at the left end of all directions, in the colour or the
 * gradient of the style. */
VELGRAPHIC_API int velCanvasDrawTextRun(velCanvas *canvas, const WCHAR *text, int length, float x, float y);

/* Measures what velCanvasDrawTextRun would draw; needs no bitmap. When refused, the record stays as it was. */
VELGRAPHIC_API int velCanvasMeasureTextRun(velCanvas *canvas, const WCHAR *text, int length, velTextExtent *out);

/* The glyphs of a run, shaped with the canvas's own font alone, for velCanvasDrawPosTextByGlyphs: from left to right,
 * their positions from the origin of the run. Result: how many there are, of which the first `capacity` are written;
 * 0 also when there are none. The arrays may be null when the capacity is 0. */
VELGRAPHIC_API int velCanvasGetTextGlyphs(velCanvas *canvas, const WCHAR *text, int length, WORD *glyphs,
                                          velPointF *positions, int capacity);

/* How far the font reaches above and below the baseline, and the distance of two baselines, in pixels. Each pointer may
 * be null. 0 when there is no such font. */
VELGRAPHIC_API int velCanvasGetFontMetrics(velCanvas *canvas, float *ascent, float *descent, float *lineHeight);

/* ---- Paths --------------------------------------------------------------------------------------------------------
 * 0 when memory is short, too; the path then stays as it was. Without a present point, a line or curve begins a figure
 * at the first point given to it. */

VELGRAPHIC_API velPath *velPathCreate(void);
VELGRAPHIC_API int velPathDestroy(velPath *path);

/* Empties the path; the fill type stays. */
VELGRAPHIC_API int velPathBegin(velPath *path);

/* A straight line back to where the figure began. 0 without a present point. */
VELGRAPHIC_API int velPathClose(velPath *path);

VELGRAPHIC_API int velPathSetFillType(velPath *path, DWORD type);
VELGRAPHIC_API int velPathMoveTo(velPath *path, float x, float y);
VELGRAPHIC_API int velPathLineTo(velPath *path, float x, float y);

/* Part of the ellipse in the rectangle, with a line to where it begins or, when `forceMoveTo`, as a new figure. */
VELGRAPHIC_API int velPathArcTo(velPath *path, float x, float y, float width, float height, float startAngle,
                                float sweepAngle, int forceMoveTo);

/* From the present point to (x, y) along an ellipse turned by `xAxisRotation` degrees: the elliptical arc of SVG path
 * data. Radii too small for the distance are enlarged in proportion; with a radius of 0 the arc is a line. */
VELGRAPHIC_API int velPathOvalCurveTo(velPath *path, float radiusX, float radiusY, float xAxisRotation, int largeArc,
                                      int clockwise, float x, float y);

VELGRAPHIC_API int velPathBezierCurveTo(velPath *path, float x1, float y1, float x2, float y2, float x3, float y3);
VELGRAPHIC_API int velPathQuadraticCurveTo(velPath *path, float x1, float y1, float x2, float y2);

/* Figures of their own: an open arc, and closed shapes. */
VELGRAPHIC_API int velPathAddArc(velPath *path, float x, float y, float width, float height, float startAngle,
                                 float sweepAngle);
VELGRAPHIC_API int velPathAddRectangle(velPath *path, float x, float y, float width, float height);
VELGRAPHIC_API int velPathAddCircle(velPath *path, float centreX, float centreY, float radius);
VELGRAPHIC_API int velPathAddEllipse(velPath *path, float centreX, float centreY, float radiusX, float radiusY);

/* The smallest rectangle around all lines and curves; all 0 for an empty path. Stroke widths play no part. */
VELGRAPHIC_API int velPathGetBounds(velPath *path, velRectF *out);

/* ---- Gradients ----------------------------------------------------------------------------------------------------
 * Their points move with the canvas's translation. Before the first stop and after the last, their colours go on. */

VELGRAPHIC_API velGradient *velGradientCreateLinear(float x0, float y0, float x1, float y1);

/* Null unless the radius is positive. */
VELGRAPHIC_API velGradient *velGradientCreateRadial(float centreX, float centreY, float radius);

/* `offset`: 0 at the first point or the centre, 1 at the second or the circle. Two stops at one place, in the order in
 * which they came, are a sharp edge. */
VELGRAPHIC_API int velGradientAddColorStop(velGradient *gradient, float offset, DWORD colour);

/* Gives up the caller's reference; a canvas that has the gradient keeps it. */
VELGRAPHIC_API int velGradientDestroy(velGradient *gradient);

/* ---- Animations ---------------------------------------------------------------------------------------------------
 * A library built without an animation renderer refuses all of it. */

/* An animation from `length` bytes of Lottie JSON, of at most 64 MB. Null when they are malformed, contain bitmap
 * images, or would take beyond reason to draw: very many layers, repeated shapes, points or dashes. */
VELGRAPHIC_API velLottie *velLottieCreateFromData(const char *json, size_t length);

/* The same from a file. */
VELGRAPHIC_API velLottie *velLottieCreateFromFile(const char *utf8Path);

VELGRAPHIC_API int velLottieGetInfo(velLottie *lottie, velLottieInfo *out);
VELGRAPHIC_API int velLottieDestroy(velLottie *lottie);

/* Draws the frame with this number, fractions dropped, or the first or last one, whichever is nearest. The animation's
 * area is stretched to the rectangle, whose edges are rounded to whole pixels. */
VELGRAPHIC_API int velLottieDraw(velCanvas *canvas, velLottie *lottie, float frame, float x, float y, float width,
                                 float height);

#ifdef __cplusplus
}
#endif

#endif
