// The same stroke drawn whole by other rasterisers under the clip of a live event. Their pixels are their own: they are
// not compared, only looked at for ink.

#include "Live.h"

#ifdef INK_BENCH_CAIRO
#include <cairo.h>
#endif
#ifdef INK_BENCH_AGG
#include <agg_conv_stroke.h>
#include <agg_path_storage.h>
#include <agg_pixfmt_rgba.h>
#include <agg_rasterizer_scanline_aa.h>
#include <agg_renderer_scanline.h>
#include <agg_scanline_u.h>
#endif

using namespace Bench;

namespace {

constexpr int kCount = 1'000;

template <typename Paint>
void registerPeer(const char *form, const Paint &paint)
{
    benchmark::RegisterBenchmark(nameOf("live/pencil", form, kCount).c_str(), [=](benchmark::State &state) {
        const LiveStroke<CInkPencil> stroke(writingBack(kCount), kPencilWidth, Qt::black);
        QImage image = canvas();
        paint(image, stroke);
        if (image == canvas())
            return state.SkipWithError("nothing was painted");
        timeEach(state, [&] { paint(image, stroke); });
    });
}

#ifdef INK_BENCH_CAIRO
void paintWithCairo(QImage &image, const LiveStroke<CInkPencil> &stroke)
{
    cairo_surface_t *surface = cairo_image_surface_create_for_data(image.bits(), CAIRO_FORMAT_ARGB32, image.width(),
                                                                   image.height(), image.bytesPerLine());
    cairo_t *context = cairo_create(surface);
    cairo_rectangle(context, stroke.newest.x(), stroke.newest.y(), stroke.newest.width(), stroke.newest.height());
    cairo_clip(context);
    cairo_set_line_width(context, kPencilWidth);
    cairo_set_line_cap(context, CAIRO_LINE_CAP_ROUND);
    cairo_set_line_join(context, CAIRO_LINE_JOIN_ROUND);
    for (const QPointF &point : stroke.points())
        cairo_line_to(context, point.x(), point.y());
    cairo_stroke(context);
    cairo_destroy(context);
    cairo_surface_destroy(surface);
}
#endif

#ifdef INK_BENCH_AGG
void paintWithAgg(QImage &image, const LiveStroke<CInkPencil> &stroke)
{
    agg::rendering_buffer buffer(image.bits(), unsigned(image.width()), unsigned(image.height()), image.bytesPerLine());
    agg::pixfmt_bgra32_pre pixels(buffer);
    agg::renderer_base<agg::pixfmt_bgra32_pre> renderer(pixels);
    const QRect &clip = stroke.newest;
    renderer.clip_box(clip.left(), clip.top(), clip.right(), clip.bottom());
    agg::path_storage path;
    path.move_to(stroke.points().first().x(), stroke.points().first().y());
    for (int i = 1; i < stroke.points().size(); ++i)
        path.line_to(stroke.points().at(i).x(), stroke.points().at(i).y());
    agg::conv_stroke<agg::path_storage> outline(path);
    outline.width(kPencilWidth);
    outline.line_cap(agg::round_cap);
    outline.line_join(agg::round_join);
    agg::rasterizer_scanline_aa<> rasterizer;
    rasterizer.clip_box(clip.left(), clip.top(), clip.right() + 1, clip.bottom() + 1);
    rasterizer.add_path(outline);
    agg::scanline_u8 scanline;
    agg::render_scanlines_aa_solid(rasterizer, scanline, renderer, agg::rgba8(0, 0, 0, 255));
}
#endif

} // namespace

void Bench::registerPeers()
{
#ifdef INK_BENCH_CAIRO
    registerPeer("cairo", paintWithCairo);
#endif
#ifdef INK_BENCH_AGG
    registerPeer("agg", paintWithAgg);
#endif
}
