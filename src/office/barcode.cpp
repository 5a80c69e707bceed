#include "office/barcode.h"

#include <memory>
#include <zint.h>

namespace {

bool IsBar(const zint_symbol& symbol, int module)
{
    return (symbol.encoded_data[0][module / 8] >> (module % 8) & 1) != 0;
}

} // namespace

BarWidths Code128(const QString& text)
{
    const QByteArray letters = text.toUtf8();
    if (letters.isEmpty() || letters.size() != text.size())
        return {};
    const std::unique_ptr<zint_symbol, decltype(&ZBarcode_Delete)> symbol(ZBarcode_Create(), ZBarcode_Delete);
    if (!symbol)
        return {};
    symbol->symbology = BARCODE_CODE128;
    const auto* const source = reinterpret_cast<const unsigned char*>(letters.constData());
    if (ZBarcode_Encode(symbol.get(), source, int(letters.size())) >= ZINT_ERROR)
        return {};
    BarWidths widths;
    bool before = false;
    for (int module = 0; module < symbol->width; ++module) {
        const bool isBar = IsBar(*symbol, module);
        if (isBar != before)
            widths.push_back(0);
        before = isBar;
        ++widths.back();
    }
    return widths;
}
