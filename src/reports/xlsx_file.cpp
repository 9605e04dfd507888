// The parts of a workbook as markup. Texts are stored in their cells, not in a table of their own.
#include "reports/xlsx_file.h"

#include <cmath>
#include <cstddef>

#include "base/format.h"
#include "base/text.h"
#include "reports/zip_archive.h"

namespace tvx {

namespace {

constexpr char kXml[] = "<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\"?>\n";

constexpr char kContentTypes[] =
    R"(<Types xmlns="http://schemas.openxmlformats.org/package/2006/content-types">)"
    R"(<Default Extension="rels" )"
    R"(ContentType="application/vnd.openxmlformats-package.relationships+xml"/>)"
    R"(<Default Extension="xml" ContentType="application/xml"/>)"
    R"(<Default Extension="png" ContentType="image/png"/>)"
    R"(<Override PartName="/xl/workbook.xml" ContentType=)"
    R"("application/vnd.openxmlformats-officedocument.spreadsheetml.sheet.main+xml"/>)"
    R"(<Override PartName="/xl/worksheets/sheet1.xml" ContentType=)"
    R"("application/vnd.openxmlformats-officedocument.spreadsheetml.worksheet+xml"/>)"
    R"(<Override PartName="/xl/styles.xml" ContentType=)"
    R"("application/vnd.openxmlformats-officedocument.spreadsheetml.styles+xml"/>)"
    "%s</Types>";
constexpr char kDrawingType[] = R"(<Override PartName="/xl/drawings/drawing1.xml" ContentType=)"
                                R"("application/vnd.openxmlformats-officedocument.drawing+xml"/>)";

constexpr char kWorkbook[] =
    R"(<workbook xmlns="http://schemas.openxmlformats.org/spreadsheetml/2006/main" )"
    R"(xmlns:r="http://schemas.openxmlformats.org/officeDocument/2006/relationships">)"
    R"(<sheets><sheet name="TVX" sheetId="1" r:id="rId1"/></sheets></workbook>)";

// One cell format for each XlsxStyle, in their order. The first two fills are prescribed.
constexpr char kStyles[] =
    R"(<styleSheet xmlns="http://schemas.openxmlformats.org/spreadsheetml/2006/main">)"
    R"(<numFmts count="1"><numFmt numFmtId="164" formatCode="0.000"/></numFmts>)"
    R"(<fonts count="2"><font><sz val="11"/><name val="Calibri"/></font>)"
    R"(<font><b/><sz val="11"/><name val="Calibri"/></font></fonts>)"
    R"(<fills count="2"><fill><patternFill patternType="none"/></fill>)"
    R"(<fill><patternFill patternType="gray125"/></fill></fills>)"
    R"(<borders count="1"><border><left/><right/><top/><bottom/><diagonal/></border></borders>)"
    R"(<cellStyleXfs count="1"><xf numFmtId="0" fontId="0" fillId="0" borderId="0"/></cellStyleXfs>)"
    R"(<cellXfs count="7">%s</cellXfs>)"
    R"(<cellStyles count="1"><cellStyle name="Normal" xfId="0" builtinId="0"/></cellStyles>)"
    R"(</styleSheet>)";
constexpr struct {
  XlsxStyle style;
  int font;    // of the two above
  int format;  // number format
} kFormats[] = {
    {XlsxStyle::kPlain, 0, 0},          {XlsxStyle::kTitle, 1, 0},
    {XlsxStyle::kLength, 0, 164},       {XlsxStyle::kMinutes, 0, 164},
    {XlsxStyle::kTotal, 1, 0},          {XlsxStyle::kTotalLength, 1, 164},
    {XlsxStyle::kTotalMinutes, 1, 164},
};

constexpr char kDrawingStart[] =
    R"(<xdr:wsDr xmlns:xdr="http://schemas.openxmlformats.org/drawingml/2006/spreadsheetDrawing" )"
    R"(xmlns:a="http://schemas.openxmlformats.org/drawingml/2006/main" )"
    R"(xmlns:r="http://schemas.openxmlformats.org/officeDocument/2006/relationships">)";

// Column, row, width, height, number, description, number, width, height.
constexpr char kPictureMarkup[] =
    R"(<xdr:oneCellAnchor><xdr:from><xdr:col>%d</xdr:col><xdr:colOff>0</xdr:colOff>)"
    R"(<xdr:row>%u</xdr:row><xdr:rowOff>0</xdr:rowOff></xdr:from>)"
    R"(<xdr:ext cx="%lld" cy="%lld"/><xdr:pic><xdr:nvPicPr>)"
    R"(<xdr:cNvPr id="%zu" name="Picture %zu" descr="%s"/><xdr:cNvPicPr/></xdr:nvPicPr>)"
    R"(<xdr:blipFill><a:blip r:embed="rId%zu"/><a:stretch><a:fillRect/></a:stretch></xdr:blipFill>)"
    R"(<xdr:spPr><a:xfrm><a:off x="0" y="0"/><a:ext cx="%lld" cy="%lld"/></a:xfrm>)"
    R"(<a:prstGeom prst="rect"><a:avLst/></a:prstGeom></xdr:spPr></xdr:pic>)"
    R"(<xdr:clientData/></xdr:oneCellAnchor>)";

// The most that a cell holds, characters; bytes of UTF-8 are at least as many.
constexpr size_t kLongestText = 32767;

std::string CellText(std::string_view text) {
  std::string cell = DocumentText(text);
  if (cell.size() > kLongestText) {
    size_t end = 0;
    while (CharacterEnd(cell, end) <= kLongestText) end = CharacterEnd(cell, end);
    cell.resize(end);
  }
  return MarkupText(cell);
}

// "A1"
std::string CellName(uint32_t row, uint16_t column) {
  std::string letters;
  for (unsigned rest = column + 1U; rest > 0; rest = (rest - 1) / 26) {
    letters.insert(letters.begin(), static_cast<char>('A' + (rest - 1) % 26));
  }
  return letters + std::to_string(row + 1);
}

struct Relationship {
  const char* type;
  std::string target;
};

// With the ids rId1, rId2 and so on.
std::string Relationships(const std::vector<Relationship>& relationships) {
  std::string markup =
      std::string(kXml) +
      R"(<Relationships xmlns="http://schemas.openxmlformats.org/package/2006/relationships">)";
  for (size_t i = 0; i < relationships.size(); ++i) {
    markup += Format(R"(<Relationship Id="rId%zu" Type=)"
                     R"("http://schemas.openxmlformats.org/officeDocument/2006/relationships/%s" )"
                     R"(Target="%s"/>)",
                     i + 1, relationships[i].type, relationships[i].target.c_str());
  }
  return markup + "</Relationships>";
}

std::string Styles() {
  std::string formats;
  for (const auto& [style, font, format] : kFormats) {
    formats += Format(R"(<xf numFmtId="%d" fontId="%d" fillId="0" borderId="0" xfId="0" )"
                      R"(applyNumberFormat="1" applyFont="1" applyAlignment="1">)"
                      R"(<alignment vertical="top"/></xf>)",
                      format, font);
  }
  return kXml + Format(kStyles, formats.c_str());
}

// A side of a PNG picture, pixels: four bytes of its first chunk, the highest first.
uint32_t PngSide(const std::string& png, size_t at) {
  uint32_t side = 0;
  for (size_t i = at; i < at + 4 && i < png.size(); ++i) {
    side = side << 8 | static_cast<unsigned char>(png[i]);
  }
  return side;
}

}  // namespace

void XlsxFile::PutCell(uint32_t row, uint16_t column, XlsxStyle style,
                       const std::string& attributes, const std::string& content) {
  rows_[row].cells[column] = Format(R"(<c r="%s" s="%d"%s>)", CellName(row, column).c_str(),
                                    static_cast<int>(style), attributes.c_str()) +
                             content + "</c>";
}

void XlsxFile::PutText(uint32_t row, uint16_t column, std::string_view text, XlsxStyle style) {
  if (text.empty()) return;
  PutCell(row, column, style, R"( t="inlineStr")",
          R"(<is><t xml:space="preserve">)" + CellText(text) + "</t></is>");
}

void XlsxFile::PutNumber(uint32_t row, uint16_t column, double number, XlsxStyle style) {
  if (!std::isfinite(number)) return;
  PutCell(row, column, style, "", "<v>" + ShortestDouble(number) + "</v>");
}

void XlsxFile::PutSum(uint32_t row, uint16_t column, uint32_t firstRow, uint32_t lastRow,
                      double result, XlsxStyle style) {
  if (!std::isfinite(result)) return;
  PutCell(row, column, style, "",
          "<f>SUM(" + CellName(firstRow, column) + ":" + CellName(lastRow, column) + ")</f><v>" +
              ShortestDouble(result) + "</v>");
}

void XlsxFile::PutPicture(uint32_t row, uint16_t column, const std::string& png, double scale,
                          const std::string& description) {
  pictures_.push_back({row, column, png, scale, description});
}

void XlsxFile::SetColumnWidth(uint16_t first, uint16_t last, uint32_t width) {
  // Of the usual font: a character, and the margins of a cell, pixels.
  constexpr double kCharacter = 7, kMargins = 5;
  columns_ += Format(R"(<col min="%d" max="%d" width="%.4f" customWidth="1"/>)", first + 1,
                     last + 1, (width - kMargins) / kCharacter);
}

std::string XlsxFile::Sheet() const {
  constexpr double kPointsPerPixel = 0.75;
  std::string markup =
      std::string(kXml) +
      R"(<worksheet xmlns="http://schemas.openxmlformats.org/spreadsheetml/2006/main" )"
      R"(xmlns:r="http://schemas.openxmlformats.org/officeDocument/2006/relationships">)"
      R"(<sheetViews><sheetView tabSelected="1" workbookViewId="0">)";
  if (frozenRows_ > 0) {
    markup += Format(R"(<pane ySplit="%u" topLeftCell="A%u" activePane="bottomLeft" )"
                     R"(state="frozen"/>)",
                     frozenRows_, frozenRows_ + 1);
  }
  markup += R"(</sheetView></sheetViews><sheetFormatPr defaultRowHeight="15"/>)";
  if (!columns_.empty()) markup += "<cols>" + columns_ + "</cols>";
  markup += "<sheetData>";
  for (const auto& [number, row] : rows_) {
    markup += Format(R"(<row r="%u")", number + 1);
    if (row.height > 0) {
      markup += Format(R"( ht="%.2f" customHeight="1")", row.height * kPointsPerPixel);
    }
    markup += ">";
    for (const auto& [column, cell] : row.cells) markup += cell;
    markup += "</row>";
  }
  markup += "</sheetData>";
  if (!pictures_.empty()) markup += R"(<drawing r:id="rId1"/>)";
  return markup + "</worksheet>";
}

std::string XlsxFile::Drawing() const {
  constexpr double kUnitsPerPixel = 9525;
  constexpr size_t kWidthAt = 16, kHeightAt = 20;  // in a PNG picture
  std::string markup = std::string(kXml) + kDrawingStart;
  for (size_t i = 0; i < pictures_.size(); ++i) {
    const Picture& picture = pictures_[i];
    const auto units = [&picture](size_t at) {
      return std::llround(PngSide(picture.png, at) * picture.scale * kUnitsPerPixel);
    };
    const long long width = units(kWidthAt), height = units(kHeightAt);
    markup += Format(kPictureMarkup, picture.column, picture.row, width, height, i + 2, i + 1,
                     CellText(picture.description).c_str(), i + 1, width, height);
  }
  return markup + "</xdr:wsDr>";
}

Status XlsxFile::Write(const std::string& path, Files* files) const {
  const bool hasPictures = !pictures_.empty();
  const std::string types = kXml + Format(kContentTypes, hasPictures ? kDrawingType : "");
  const std::string start = Relationships({{"officeDocument", "xl/workbook.xml"}});
  const std::string workbook = std::string(kXml) + kWorkbook;
  const std::string workbookParts =
      Relationships({{"worksheet", "worksheets/sheet1.xml"}, {"styles", "styles.xml"}});
  const std::string styles = Styles();
  const std::string sheet = Sheet();
  std::vector<ZipMember> members = {
      {"[Content_Types].xml", types}, {"_rels/.rels", start},
      {"xl/workbook.xml", workbook},  {"xl/_rels/workbook.xml.rels", workbookParts},
      {"xl/styles.xml", styles},      {"xl/worksheets/sheet1.xml", sheet},
  };
  const std::string sheetParts = Relationships({{"drawing", "../drawings/drawing1.xml"}});
  const std::string drawing = Drawing();
  std::vector<Relationship> images;
  for (size_t i = 0; i < pictures_.size(); ++i) {
    const std::string name = Format("media/image%zu.png", i + 1);
    images.push_back({"image", "../" + name});
    members.push_back({"xl/" + name, pictures_[i].png, /*isCompressed=*/false});
  }
  const std::string drawingParts = Relationships(images);
  if (hasPictures) {
    members.push_back({"xl/worksheets/_rels/sheet1.xml.rels", sheetParts});
    members.push_back({"xl/drawings/drawing1.xml", drawing});
    members.push_back({"xl/drawings/_rels/drawing1.xml.rels", drawingParts});
  }

  const Result<std::string> archive = PackZip(members);
  if (!archive.ok()) return archive.status.For(path);
  return WriteWholeFile(files, path, archive.value);
}

}  // namespace tvx
