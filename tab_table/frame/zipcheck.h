#pragma once

class QString;

/// Whether every part of a ZIP archive is there as a whole XML document. Reads archives below 4 GB as the
/// workbook's library writes them: without encryption, comment or disks.
bool isWholeXmlArchive(const QString &path);
