#include "support/zip_file.h"

#include <QDataStream>
#include <QIODevice>
#include <vector>

namespace {

struct ZipEntry
{
    QByteArray name;
    QByteArray content;
};

quint32 Crc32(const QByteArray& bytes)
{
    quint32 crc = 0xffffffff;
    for (const char byte : bytes) {
        crc ^= static_cast<quint8>(byte);
        for (int bit = 0; bit < 8; ++bit)
            crc = (crc >> 1) ^ (crc & 1 ? 0xedb88320 : 0);
    }
    return ~crc;
}

constexpr quint16 kVersion = 20;

/// What stands in front of an entry and, once more, in the directory.
void WriteEntry(QDataStream& out, const ZipEntry& entry)
{
    const auto size = static_cast<quint32>(entry.content.size());
    out << kVersion << quint16(0) << quint16(0) << quint32(0x21 << 16) << Crc32(entry.content) << size << size
        << quint16(entry.name.size()) << quint16(0);
}

void WriteText(QDataStream& out, const QByteArray& text)
{
    out.writeRawData(text.constData(), static_cast<int>(text.size()));
}

const QByteArray kXml = "<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\"?>";
const QByteArray kMain = " xmlns=\"http://schemas.openxmlformats.org/spreadsheetml/2006/main\">";
const QByteArray kRelation = "http://schemas.openxmlformats.org/officeDocument/2006/relationships";
const QByteArray kPart = "<Override ContentType=\"application/vnd.openxmlformats-officedocument.spreadsheetml.";

QByteArray Relations(const std::vector<std::pair<QByteArray, QByteArray>>& targets)
{
    QByteArray xml = kXml + "<Relationships xmlns=\"http://schemas.openxmlformats.org/package/2006/relationships\">";
    int id = 0;
    for (const auto& [type, target] : targets)
        xml += "<Relationship Id=\"rId" + QByteArray::number(++id) + "\" Type=\"" + kRelation + "/" + type +
               "\" Target=\"" + target + "\"/>";
    return xml + "</Relationships>";
}

QByteArray ContentTypes()
{
    return kXml +
           "<Types xmlns=\"http://schemas.openxmlformats.org/package/2006/content-types\">"
           "<Default Extension=\"rels\" "
           "ContentType=\"application/vnd.openxmlformats-package.relationships+xml\"/>" +
           kPart + "sheet.main+xml\" PartName=\"/xl/workbook.xml\"/>" + kPart +
           "worksheet+xml\" PartName=\"/xl/sheet1.xml\"/>" + kPart + "styles+xml\" PartName=\"/xl/styles.xml\"/>" +
           kPart + "sharedStrings+xml\" PartName=\"/xl/strings.xml\"/></Types>";
}

QByteArray Styles(const QByteArray& formats)
{
    const qsizetype cells = formats.indexOf("<cellXfs");
    return kXml + "<styleSheet" + kMain + formats.left(cells) +
           "<fonts count=\"1\"><font/></fonts><fills count=\"1\"><fill/></fills><borders "
           "count=\"1\"><border/></borders>"
           "<cellStyleXfs count=\"1\"><xf/></cellStyleXfs>" +
           formats.mid(cells) + "</styleSheet>";
}

QByteArray ZipOf(const std::vector<ZipEntry>& entries)
{
    QByteArray zip;
    QByteArray directory;
    QDataStream out(&zip, QIODevice::WriteOnly);
    QDataStream list(&directory, QIODevice::WriteOnly);
    out.setByteOrder(QDataStream::LittleEndian);
    list.setByteOrder(QDataStream::LittleEndian);
    for (const ZipEntry& entry : entries) {
        list << quint32(0x02014b50) << kVersion;
        WriteEntry(list, entry);
        list << quint16(0) << quint16(0) << quint16(0) << quint32(0) << quint32(zip.size());
        WriteText(list, entry.name);
        out << quint32(0x04034b50);
        WriteEntry(out, entry);
        WriteText(out, entry.name + entry.content);
    }
    const auto start = static_cast<quint32>(zip.size());
    const auto count = static_cast<quint16>(entries.size());
    WriteText(out, directory);
    out << quint32(0x06054b50) << quint16(0) << quint16(0) << count << count << quint32(directory.size()) << start
        << quint16(0);
    return zip;
}

} // namespace

QByteArray XlsxOf(const QByteArray& sheetName, const QByteArray& sheet, const QByteArray& strings,
                  const QByteArray& formats)
{
    const QByteArray workbook = kXml + "<workbook xmlns:r=\"" + kRelation + "\"" + kMain + "<sheets><sheet name=\"" +
                                sheetName + "\" sheetId=\"1\" r:id=\"rId1\"/></sheets></workbook>";
    return ZipOf({
        {"[Content_Types].xml", ContentTypes()},
        {"_rels/.rels", Relations({{"officeDocument", "xl/workbook.xml"}})},
        {"xl/workbook.xml", workbook},
        {"xl/_rels/workbook.xml.rels",
         Relations({{"worksheet", "sheet1.xml"}, {"styles", "styles.xml"}, {"sharedStrings", "strings.xml"}})},
        {"xl/styles.xml", Styles(formats)},
        {"xl/strings.xml", kXml + "<sst" + kMain + strings + "</sst>"},
        {"xl/sheet1.xml", kXml + "<worksheet" + kMain + sheet + "</worksheet>"},
    });
}
