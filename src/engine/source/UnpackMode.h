#pragma once

#include <QByteArray>
#include <QString>

/// A mode source that packs back to exactly these bytes. Records that a rule line would not
/// reproduce, or whose rule the packer would refuse, become `raw` lines.
[[nodiscard]] QString unpackMode(const QByteArray &bytes);
