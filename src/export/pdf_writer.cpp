#include "export/pdf_writer.h"

#include <cairo-pdf.h>
#include <cairo.h>

#include <ostream>
#include <string>

#include "export/sheet_format.h"

namespace numarel {
namespace {

cairo_status_t WriteToStream(void* closure, const unsigned char* data, unsigned int length) {
    auto& out = *static_cast<std::ostream*>(closure);
    out.write(reinterpret_cast<const char*>(data), static_cast<std::streamsize>(length));
    return out ? CAIRO_STATUS_SUCCESS : CAIRO_STATUS_WRITE_ERROR;
}

class CairoCanvas final : public PageCanvas {
public:
    explicit CairoCanvas(cairo_t* cr) : cr_(cr) {}

    void FillRect(double x, double y, double w, double h, Rgb colour) override {
        SetColour(colour);
        cairo_rectangle(cr_, x, y, w, h);
        cairo_fill(cr_);
    }
    void Line(double x1, double y1, double x2, double y2, Rgb colour, double width) override {
        SetColour(colour);
        cairo_set_line_width(cr_, width);
        cairo_move_to(cr_, x1, y1);
        cairo_line_to(cr_, x2, y2);
        cairo_stroke(cr_);
    }
    void Text(double x, double y, double w, double h, std::string_view utf8, Rgb colour,
              double points, bool bold, Align align) override {
        if (utf8.empty() || w <= 0 || h <= 0) return;
        const std::string text(utf8);
        cairo_save(cr_);
        cairo_rectangle(cr_, x, y, w, h);
        cairo_clip(cr_);
        SetFont(points, bold);
        cairo_text_extents_t extents;
        cairo_text_extents(cr_, text.c_str(), &extents);
        cairo_font_extents_t font;
        cairo_font_extents(cr_, &font);
        double left = x;
        if (align == Align::Centre) left = x + (w - extents.x_advance) / 2;
        if (align == Align::Right) left = x + w - extents.x_advance;
        SetColour(colour);
        cairo_move_to(cr_, left, y + (h + font.ascent - font.descent) / 2);
        cairo_show_text(cr_, text.c_str());
        cairo_restore(cr_);
    }
    double TextWidth(std::string_view utf8, double points, bool bold) override {
        const std::string text(utf8);
        SetFont(points, bold);
        cairo_text_extents_t extents;
        cairo_text_extents(cr_, text.c_str(), &extents);
        return extents.x_advance;
    }

private:
    void SetColour(Rgb c) {
        cairo_set_source_rgb(cr_, ((c >> 16) & 0xFF) / 255.0, ((c >> 8) & 0xFF) / 255.0,
                             (c & 0xFF) / 255.0);
    }
    void SetFont(double points, bool bold) {
        cairo_select_font_face(cr_, "Arial", CAIRO_FONT_SLANT_NORMAL,
                               bold ? CAIRO_FONT_WEIGHT_BOLD : CAIRO_FONT_WEIGHT_NORMAL);
        cairo_set_font_size(cr_, points);
    }
    cairo_t* cr_;
};

}  // namespace

void WriteSheetPdf(const ReportSheet& sheet, std::string_view lottery, const std::vector<int>& rows,
                   const PageSetup& setup, std::ostream& out) {
    const PageLayout layout = LayOutPages(sheet, rows, setup);
    cairo_surface_t* surface =
        cairo_pdf_surface_create_for_stream(WriteToStream, &out, setup.width, setup.height);
    const std::string title = SheetTextToUtf8(sheet.Title());
    cairo_pdf_surface_set_metadata(surface, CAIRO_PDF_METADATA_TITLE, title.c_str());
    cairo_pdf_surface_set_metadata(surface, CAIRO_PDF_METADATA_CREATOR, "Numarel");
    cairo_t* cr = cairo_create(surface);
    CairoCanvas canvas(cr);
    for (std::size_t i = 0; i < layout.pages.size() && out; ++i) {
        DrawSheetPage(sheet, layout, i, lottery, canvas);
        cairo_show_page(cr);
    }
    cairo_destroy(cr);
    cairo_surface_finish(surface);
    const cairo_status_t status = cairo_surface_status(surface);
    cairo_surface_destroy(surface);
    if (status != CAIRO_STATUS_SUCCESS) out.setstate(std::ios::badbit);
}

void WriteSheetPdf(const ReportSheet& sheet, std::string_view lottery, const PdfChoice& choice,
                   std::ostream& out) {
    PageSetup setup = A4Landscape();
    setup.fitToWidth = choice.fitToWidth;
    const int drawings =
        choice.drawings < 0 ? DrawingsFillingOnePage(sheet, setup) : choice.drawings;
    WriteSheetPdf(sheet, lottery, NewestDrawingRows(sheet, drawings), setup, out);
}

}  // namespace numarel
