#include "office/sheet_bars.h"

#include "office/uno_text.h"

#include <algorithm>
#include <com/sun/star/awt/XDevice.hpp>
#include <com/sun/star/awt/XToolkit.hpp>
#include <com/sun/star/awt/XWindowPeer.hpp>
#include <com/sun/star/beans/XPropertySet.hpp>
#include <com/sun/star/drawing/FillStyle.hpp>
#include <com/sun/star/drawing/LineStyle.hpp>
#include <com/sun/star/drawing/PointSequenceSequence.hpp>
#include <com/sun/star/drawing/XDrawPagesSupplier.hpp>
#include <com/sun/star/lang/XMultiServiceFactory.hpp>
#include <numeric>

using namespace com::sun::star;
using uno::Any;
using uno::Reference;
using uno::UNO_QUERY_THROW;

namespace {

// Hundredths of a millimetre.
constexpr int kWidestModule = 33;
constexpr int kNarrowestModule = 15;
constexpr int kRim = 60;
constexpr int kTextHeight = 400;

constexpr int kQuietModules = 10; // of blank paper at either side

drawing::PointSequence Bar(const awt::Rectangle& bar)
{
    const int right = bar.X + bar.Width, bottom = bar.Y + bar.Height;
    const awt::Point corners[] = {{bar.X, bar.Y}, {right, bar.Y}, {right, bottom}, {bar.X, bottom}, {bar.X, bar.Y}};
    return {corners, std::size(corners)};
}

/// The bars in the middle of a place.
drawing::PointSequenceSequence BarsIn(const BarWidths& bars, int module, const awt::Rectangle& place)
{
    const int width = module * std::accumulate(bars.begin(), bars.end(), 0);
    drawing::PointSequenceSequence shapes(sal_Int32(bars.size() + 1) / 2);
    int left = place.X + (place.Width - width) / 2;
    for (size_t each = 0; each < bars.size(); ++each) {
        const int wide = module * bars[each];
        if (each % 2 == 0)
            shapes.getArray()[each / 2] = Bar({left, place.Y, wide, place.Height});
        left += wide;
    }
    return shapes;
}

awt::Rectangle PlaceOf(const Reference<table::XCell>& cell)
{
    const Reference<beans::XPropertySet> properties(cell, UNO_QUERY_THROW);
    awt::Point position;
    awt::Size size;
    properties->getPropertyValue("Position") >>= position;
    properties->getPropertyValue("Size") >>= size;
    return {position.X, position.Y, size.Width, size.Height};
}

} // namespace

bool HasFont(const Reference<frame::XModel>& document, const rtl::OUString& name)
{
    const Reference<awt::XWindowPeer> window(document->getCurrentController()->getFrame()->getContainerWindow(),
                                             UNO_QUERY_THROW);
    const auto fonts = window->getToolkit()->createScreenCompatibleDevice(1, 1)->getFontDescriptors();
    return std::ranges::any_of(fonts, [&](const awt::FontDescriptor& font) { return font.Name == name; });
}

Reference<drawing::XShapes> ShapesOf(const Reference<frame::XModel>& document, int sheet)
{
    const Reference<drawing::XDrawPagesSupplier> supplier(document, UNO_QUERY_THROW);
    return {supplier->getDrawPages()->getByIndex(sheet), UNO_QUERY_THROW};
}

void DrawBars(const Reference<frame::XModel>& document, const Reference<drawing::XShapes>& page,
              const Reference<table::XCell>& cell, const BarWidths& bars)
{
    const awt::Rectangle place = PlaceOf(cell);
    const int modules = std::accumulate(bars.begin(), bars.end(), 2 * kQuietModules);
    const int module = std::min(kWidestModule, place.Width / modules);
    const int height = place.Height - kRim - kTextHeight;
    if (bars.empty() || module < kNarrowestModule || height <= 0)
        return;
    const drawing::PointSequenceSequence shapes = BarsIn(bars, module, {place.X, place.Y + kRim, place.Width, height});
    const Reference<lang::XMultiServiceFactory> factory(document, UNO_QUERY_THROW);
    const Reference<drawing::XShape> shape(factory->createInstance("com.sun.star.drawing.PolyPolygonShape"),
                                           UNO_QUERY_THROW);
    page->add(shape);
    SetProperties(shape, {Property("Anchor", Any(cell)), Property("FillColor", Any(sal_Int32(0))),
                          Property("FillStyle", Any(drawing::FillStyle_SOLID)),
                          Property("LineStyle", Any(drawing::LineStyle_NONE)), Property("PolyPolygon", Any(shapes))});
}
