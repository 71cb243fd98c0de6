#include "products/names.h"

#include <QDir>

namespace products {

QString BaseName(const QString& name) {
    const qsizetype dot = name.lastIndexOf(u'.');
    return dot < 0 ? name : name.left(dot);
}

QString LocalPath(const QString& name) {
    return QDir::fromNativeSeparators(QString(name).replace(u'\\', u'/'));
}

} // namespace products
