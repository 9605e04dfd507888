// Opens, fills and saves a workbook, and refuses files that would be damaged by saving.
#include "calc/workbook.h"

#include <algorithm>
#include <cmath>
#include <com/sun/star/awt/XTopWindow.hpp>
#include <com/sun/star/beans/PropertyValue.hpp>
#include <com/sun/star/container/XIndexAccess.hpp>
#include <com/sun/star/document/MacroExecMode.hpp>
#include <com/sun/star/document/UpdateDocMode.hpp>
#include <com/sun/star/frame/XModel.hpp>
#include <com/sun/star/frame/XStorable.hpp>
#include <com/sun/star/sheet/XCellRangeAddressable.hpp>
#include <com/sun/star/sheet/XSpreadsheetDocument.hpp>
#include <com/sun/star/text/XText.hpp>
#include <com/sun/star/util/XCloseable.hpp>
#include <rtl/uri.hxx>

#include "base/scan.h"
#include "calc/uno_text.h"
#include "platform/files/files.h"
#include "platform/files/new_file.h"

namespace tvx {

namespace fs = std::filesystem;
namespace uno = com::sun::star::uno;
namespace beans = com::sun::star::beans;
namespace container = com::sun::star::container;
namespace document = com::sun::star::document;
namespace awt = com::sun::star::awt;
namespace frame = com::sun::star::frame;
namespace lang = com::sun::star::lang;
namespace sheet = com::sun::star::sheet;
namespace table = com::sun::star::table;
namespace text = com::sun::star::text;
namespace util = com::sun::star::util;

namespace {

// The formats that a workbook can be saved in, by the extension of its name.
struct SavingFormat {
  std::string_view ending;
  const char* filter;
};
constexpr SavingFormat kSavingFormats[] = {
    {".ods", "calc8"},
    {".xlsx", "Calc MS Excel 2007 XML"},
    {".xls", "MS Excel 97"},
    {".xlsm", "Calc MS Excel 2007 VBA XML"},
    {".fods", "OpenDocument Spreadsheet Flat XML"},
};

const SavingFormat* FindSavingFormat(const std::string& ending) {
  for (const SavingFormat& format : kSavingFormats) {
    if (EqualNoCase(format.ending, ending)) return &format;
  }
  return nullptr;
}

// A file with such an extension may hold text or a web page, which the office also opens as a
// workbook. Saving it as a workbook would destroy it.
bool IsWorkbookFilter(std::string_view filter) {
  if (filter.starts_with("MS Excel ")) return true;  // also the formats before 97
  return std::any_of(std::begin(kSavingFormats), std::end(kSavingFormats),
                     [&](const SavingFormat& format) { return filter == format.filter; });
}

beans::PropertyValue Property(const char* name, const uno::Any& value) {
  beans::PropertyValue property;
  property.Name = rtl::OUString::createFromAscii(name);
  property.Value = value;
  return property;
}

uno::Sequence<beans::PropertyValue> Properties(
    std::initializer_list<beans::PropertyValue> properties) {
  return {properties.begin(), static_cast<sal_Int32>(properties.size())};
}

rtl::OUString WithoutEscapes(const rtl::OUString& url) {
  return rtl::Uri::decode(url, rtl_UriDecodeWithCharset, RTL_TEXTENCODING_UTF8);
}

// The document with this URL if the office has it open, else null.
uno::Reference<lang::XComponent> FindOpen(const rtl::OUString& url,
                                          const uno::Reference<frame::XDesktop2>& desktop) {
  const auto documents = desktop->getComponents()->createEnumeration();
  while (documents->hasMoreElements()) {
    const uno::Reference<frame::XModel> model(documents->nextElement(), uno::UNO_QUERY);
    if (model.is() && WithoutEscapes(model->getURL()) == WithoutEscapes(url)) {
      return {model, uno::UNO_QUERY};
    }
  }
  return {};
}

std::string FilterOf(const uno::Reference<frame::XModel>& model) {
  for (const beans::PropertyValue& property : model->getArgs()) {
    rtl::OUString text;
    if (property.Name == "FilterName" && (property.Value >>= text)) return ToUtf8(text);
  }
  return {};
}

}  // namespace

Workbook::~Workbook() {
  try {
    Close();
  } catch (const uno::Exception&) {
    // The office has ended, and the workbook with it.
  }
}

Workbook::FileState Workbook::StateOf(const fs::path& path) {
  FileState state;
  std::error_code error;
  state.written = fs::last_write_time(path, error);
  state.exists = !error;
  if (state.exists) state.size = fs::file_size(path, error);
  return state;
}

void Workbook::Open(const fs::path& path) {
  const bool toBeSaved = office_->form() == OfficeForm::kHidden;
  path_ = path;
  found_ = StateOf(path_);
  if (found_.exists && !fs::is_regular_file(path_)) throw Problem{"is no file"};
  if (!found_.exists && !toBeSaved) throw Problem{"does not exist"};
  if (toBeSaved) CheckName();

  const auto how = Properties({
      Property("Hidden", uno::Any(true)),
      Property("MacroExecutionMode", uno::Any(document::MacroExecMode::NEVER_EXECUTE)),
      Property("UpdateDocMode", uno::Any(document::UpdateDocMode::NO_UPDATE)),
  });
  const rtl::OUString url =
      found_.exists ? FromUtf8(FileUrl(path_)) : rtl::OUString("private:factory/scalc");
  // If the user has the workbook open, that document is filled, with its unsaved changes.
  document_ = FindOpen(url, office_->desktop());
  wasOpen_ = document_.is();
  // No interaction handler is given, so a file that needs a question (a password, a repair) fails.
  if (!wasOpen_) document_ = office_->desktop()->loadComponentFromURL(url, "_blank", 0, how);
  if (!uno::Reference<sheet::XSpreadsheetDocument>(document_, uno::UNO_QUERY).is()) {
    throw Problem{"cannot be read as a workbook"};
  }
  if (toBeSaved && found_.exists) CheckContent();
}

void Workbook::CheckName() const {
  if (FindSavingFormat(path_.extension().string()) == nullptr) {
    std::string endings;
    for (const SavingFormat& format : kSavingFormats) endings += " " + std::string(format.ending);
    throw Problem{"has no ending of a workbook:" + endings};
  }
  std::error_code error;
  if (!fs::is_directory(path_.parent_path(), error)) throw Problem{"lies in no folder"};
}

void Workbook::CheckContent() const {
  if (uno::Reference<frame::XStorable>(document_, uno::UNO_QUERY_THROW)->isReadonly()) {
    throw Problem{"may not be written, or is open in another program"};
  }
  const std::string filter =
      FilterOf(uno::Reference<frame::XModel>(document_, uno::UNO_QUERY_THROW));
  if (!IsWorkbookFilter(filter)) throw Problem{"is no workbook: " + filter};
}

void Workbook::TakeSheet(int number) {
  const uno::Reference<sheet::XSpreadsheetDocument> document(document_, uno::UNO_QUERY_THROW);
  const uno::Reference<container::XIndexAccess> sheets(document->getSheets(), uno::UNO_QUERY_THROW);
  sheet_.set(sheets->getByIndex(number - 1), uno::UNO_QUERY_THROW);
}

void Workbook::TakeRange(std::string_view name) {
  if (!sheet_.is()) throw Problem{"no sheet is taken"};
  range_ = sheet_->getCellRangeByName(FromUtf8(name));
  rows_ = columns_ = 1;
  if (name.find(':') == std::string_view::npos) return;
  const uno::Reference<sheet::XCellRangeAddressable> cells(range_, uno::UNO_QUERY_THROW);
  const table::CellRangeAddress address = cells->getRangeAddress();
  rows_ = address.EndRow - address.StartRow + 1;
  columns_ = address.EndColumn - address.StartColumn + 1;
}

// `put` reads each cell back: a protected cell keeps its content without an error.
template <typename Put>
void Workbook::ForEachCell(Put put) {
  if (!range_.is()) throw Problem{"no cells are taken"};
  for (int row = 0; row < rows_; ++row) {
    for (int column = 0; column < columns_; ++column) {
      if (!put(range_->getCellByPosition(column, row))) throw Problem{"a cell cannot be changed"};
    }
  }
}

void Workbook::PutNumber(double number) {
  ForEachCell([number](const uno::Reference<table::XCell>& cell) {
    cell->setValue(number);
    return cell->getValue() == number || !std::isfinite(number);
  });
}

void Workbook::PutText(std::string_view text) {
  const rtl::OUString string = FromUtf8(text);
  ForEachCell([&string](const uno::Reference<table::XCell>& cell) {
    const uno::Reference<text::XText> content(cell, uno::UNO_QUERY_THROW);
    content->setString(string);  // stored unchanged, never read as a formula
    return content->getString() == string;
  });
}

void Workbook::SetVisible(bool visible) {
  const uno::Reference<frame::XModel> model(document_, uno::UNO_QUERY_THROW);
  const uno::Reference<awt::XWindow> window =
      model->getCurrentController()->getFrame()->getContainerWindow();
  window->setVisible(visible);
  const uno::Reference<awt::XTopWindow> top(window, uno::UNO_QUERY);
  if (visible && top.is()) top->toFront();
}

void Workbook::LeaveToUser() {
  if (!document_.is()) throw Problem{"no workbook is open"};
  office_->LeaveToUser();
  document_.clear();
}

void Workbook::Save() {
  const uno::Reference<frame::XStorable> storable(document_, uno::UNO_QUERY_THROW);
  const SavingFormat* const format = FindSavingFormat(path_.extension().string());
  if (office_->form() != OfficeForm::kHidden || format == nullptr) {
    throw Problem{"is not to be saved here"};
  }
  // In the folder of the workbook, so that links relative to it remain valid.
  NewFile fresh(path_);
  if (!fresh.status().ok()) throw Problem{"cannot be written: " + fresh.status().Text()};
  const rtl::OUString filter = rtl::OUString::createFromAscii(format->filter);
  storable->storeToURL(FromUtf8(FileUrl(fresh.path())),
                       Properties({Property("FilterName", uno::Any(filter))}));
  if (StateOf(path_) != found_) throw Problem{"was changed by another program meanwhile"};
  const Status placed = fresh.PutInPlace();
  if (!placed.ok()) throw Problem{"cannot be written: " + placed.Text()};
  Close();
}

void Workbook::Close() {
  range_.clear();
  sheet_.clear();
  const uno::Reference<util::XCloseable> closeable(document_, uno::UNO_QUERY);
  document_.clear();
  if (closeable.is() && !wasOpen_) closeable->close(true);
}

}  // namespace tvx
