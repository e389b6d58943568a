// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/MIMETypes.h"

#include <QList>
#include <QStringBuilder>

#include <algorithm>
#include <array>

namespace MIMETypes {

namespace {

struct Row {
    QByteArrayView type;
    QByteArrayView extensions;
};

// In the order of the types, which the search relies on. Four types are cut to 28 characters; they match no full
// type name, and files already named by this table stay named as they are because of it.
constexpr std::array table {
    Row { "application/acad", "dwg" },
    Row { "application/astound", "asd:asn" },
    Row { "application/dsptype", "tsp" },
    Row { "application/dxf", "dxf" },
    Row { "application/futuresplash", "spl" },
    Row { "application/gzip", "gz" },
    Row { "application/listenup", "ptlk" },
    Row { "application/mac-binhex40", "hqx" },
    Row { "application/mbedlet", "mbd" },
    Row { "application/mif", "mif" },
    Row { "application/msexcel", "xls:xla" },
    Row { "application/mshelp", "hlp:chm" },
    Row { "application/mspowerpoint", "ppt:ppz:pps:pot" },
    Row { "application/msword", "doc:dot" },
    Row { "application/octet-stream", "bin:exe:com:dll:class" },
    Row { "application/oda", "oda" },
    Row { "application/pdf", "pdf" },
    Row { "application/postscript", "ai:eps:ps" },
    Row { "application/rtc", "rtc" },
    Row { "application/rtf", "rtf" },
    Row { "application/studiom", "smp" },
    Row { "application/toolbook", "tbk" },
    Row { "application/vnd.wap.wmlc", "wmlc" },
    Row { "application/vnd.wap.wmlscrip", "wmlsc" },
    Row { "application/vocaltec-media-d", "c" },
    Row { "application/vocaltec-media-f", "e" },
    Row { "application/x-bcpio", "bcpio" },
    Row { "application/x-compress", "z" },
    Row { "application/x-cpio", "cpio" },
    Row { "application/x-csh", "csh" },
    Row { "application/x-director", "dcr:dir:dxr" },
    Row { "application/x-dvi", "dvi" },
    Row { "application/x-envoy", "evy" },
    Row { "application/x-gtar", "gtar" },
    Row { "application/x-hdf", "hdf" },
    Row { "application/x-httpd-php", "php:phtml" },
    Row { "application/x-javascript", "js" },
    Row { "application/x-latex", "latex" },
    Row { "application/x-macbinary", "bin" },
    Row { "application/x-mif", "mif" },
    Row { "application/x-netcdf", "nc:cdf" },
    Row { "application/x-nschat", "nsc" },
    Row { "application/x-sh", "sh" },
    Row { "application/x-shar", "shar" },
    Row { "application/x-shockwave-flas", "swf:cab" },
    Row { "application/x-sprite", "spr:sprite" },
    Row { "application/x-stuffit", "sit" },
    Row { "application/x-supercard", "sca" },
    Row { "application/x-sv4cpio", "sv4cpio" },
    Row { "application/x-sv4crc", "sv4crc" },
    Row { "application/x-tar", "tar" },
    Row { "application/x-tcl", "tcl" },
    Row { "application/x-tex", "tex" },
    Row { "application/x-texinfo", "texinfo:texi" },
    Row { "application/x-troff", "t:tr:roff" },
    Row { "application/x-troff-man", "man:troff" },
    Row { "application/x-troff-me", "me:troff" },
    Row { "application/x-troff-ms", "me:troff" },
    Row { "application/x-ustar", "ustar" },
    Row { "application/x-wais-source", "src" },
    Row { "application/xhtml+xml", "htm:html:shtml:xhtml" },
    Row { "application/xml", "xml" },
    Row { "application/zip", "zip" },
    Row { "audio/basic", "au:snd" },
    Row { "audio/echospeech", "es" },
    Row { "audio/tsplayer", "tsi" },
    Row { "audio/voxware", "vox" },
    Row { "audio/x-aiff", "aif:aiff:aifc" },
    Row { "audio/x-dspeeh", "dus:cht" },
    Row { "audio/x-midi", "mid:midi" },
    Row { "audio/x-mpeg", "mp2" },
    Row { "audio/x-pn-realaudio", "ram:ra" },
    Row { "audio/x-pn-realaudio-plugin", "rpm" },
    Row { "audio/x-qt-stream", "stream" },
    Row { "audio/x-wav", "wav" },
    Row { "drawing/x-dwf", "dwf" },
    Row { "image/cis-cod", "cod" },
    Row { "image/cmu-raster", "ras" },
    Row { "image/fif", "fif" },
    Row { "image/gif", "gif" },
    Row { "image/ief", "ief" },
    Row { "image/jpeg", "jpeg:jpg:jpe" },
    Row { "image/png", "png" },
    Row { "image/tiff", "tiff:tif" },
    Row { "image/vasa", "mcf" },
    Row { "image/vnd.wap.wbmp", "wbmp" },
    Row { "image/x-freehand", "fh4:fh5:fhc" },
    Row { "image/x-icon", "ico" },
    Row { "image/x-portable-anymap", "pnm" },
    Row { "image/x-portable-bitmap", "pbm" },
    Row { "image/x-portable-graymap", "pgm" },
    Row { "image/x-portable-pixmap", "ppm" },
    Row { "image/x-rgb", "rgb" },
    Row { "image/x-windowdump", "xwd" },
    Row { "image/x-xbitmap", "xbm" },
    Row { "image/x-xpixmap", "xpm" },
    Row { "model/vrml", "wrl" },
    Row { "text/comma-separated-values", "csv" },
    Row { "text/css", "css" },
    Row { "text/html", "htm:html:shtml" },
    Row { "text/javascript", "js" },
    Row { "text/plain", "txt" },
    Row { "text/richtext", "rtx" },
    Row { "text/rtf", "rtf" },
    Row { "text/tab-separated-values", "tsv" },
    Row { "text/vnd.wap.wml", "wml" },
    Row { "text/vnd.wap.wmlscript", "wmls" },
    Row { "text/x-setext", "etx" },
    Row { "text/x-sgml", "sgm:sgml" },
    Row { "text/x-speech", "talk:spc" },
    Row { "text/xml", "xml" },
    Row { "video/mpeg", "mpeg:mpg:mpe" },
    Row { "video/quicktime", "qt:mov" },
    Row { "video/vnd.vivo", "viv:vivo" },
    Row { "video/x-msvideo", "avi" },
    Row { "video/x-sgi-movie", "movie" },
    Row { "workbook/formulaone", "vts:vtts" },
    Row { "x-world/x-3dmf", "3dmf:3dm:qd3d:qd3" },
    Row { "x-world/x-vrml", "wrl" },
};
static_assert(std::is_sorted(table.begin(), table.end(), [](const Row& a, const Row& b) {
    return std::lexicographical_compare(a.type.begin(), a.type.end(), b.type.begin(), b.type.end());
}));

bool hasExtension(const QByteArray& fileName, QByteArrayView extension)
{
    return fileName.endsWith(extension) && fileName.chopped(extension.size()).endsWith('.');
}

} // namespace

QByteArrayView extensionsFor(QByteArrayView mimeType)
{
    const auto row = std::lower_bound(
        table.begin(), table.end(), mimeType, [](const Row& r, QByteArrayView type) { return r.type < type; });
    return row != table.end() && row->type == mimeType ? row->extensions : QByteArrayView();
}

QByteArray extensionByMIME(const QByteArray& fileName, QByteArrayView mimeType)
{
    const QByteArrayView extensions = extensionsFor(mimeType);
    if (extensions.isEmpty())
        return fileName;
    const QList<QByteArray> candidates = extensions.toByteArray().split(':');
    const auto fits = [&](const QByteArray& extension) {
        return hasExtension(fileName, extension);
    };
    if (std::any_of(candidates.begin(), candidates.end(), fits))
        return fileName;
    return fileName + '.' + candidates.first();
}

QByteArray addExtension(const QByteArray& fileName, QByteArrayView extension)
{
    return hasExtension(fileName, extension) ? fileName : fileName + '.' + extension;
}

bool isHTML(QByteArrayView mimeType)
{
    return mimeType.startsWith("text/html");
}

} // namespace MIMETypes
