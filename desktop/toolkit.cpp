#include "desktop/toolkit.h"

#include <unistd.h>

#include <QDir>

namespace tarvex {

void prepareToolkit() {
    constexpr const char* variable = "XDG_RUNTIME_DIR";
    if (qEnvironmentVariableIsEmpty(variable))
        qputenv(variable, (QDir::tempPath() + "/runtime-" + QString::number(geteuid())).toUtf8());
}

}  // namespace tarvex
