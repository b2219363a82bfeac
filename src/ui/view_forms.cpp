#include "ui/view_forms.h"

#include "platform/named_controls.h"
#include "ui_broken_links_view.h"
#include "ui_export_view.h"
#include "ui_filter_panel.h"
#include "ui_html_view.h"
#include "ui_scan_view.h"
#include "ui_style_view.h"
#include "ui_upload_view.h"
#include "ui_xml_view.h"

namespace ui {

namespace {

template <typename Form>
void fill(const QMainWindow& frame, const char* page) {
  Form().setupUi(&platform::control<QWidget>(frame, page));
}

}  // namespace

void fillViews(const QMainWindow& frame) {
  fill<Ui::ScanView>(frame, "scanWindowView");
  fill<Ui::HtmlView>(frame, "htmlWindowView");
  fill<Ui::StyleView>(frame, "htmlEditorWindowView");
  fill<Ui::XmlView>(frame, "xmlWindowView");
  fill<Ui::ExportView>(frame, "exportWindowView");
  fill<Ui::UploadView>(frame, "uploadWindowView");
  fill<Ui::BrokenLinksView>(frame, "blWindowView");
  fill<Ui::FilterPanel>(frame, "filterPanel");
}

}  // namespace ui
