// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/media/EngineModule.h"

#include "platform/text/Text.h"

#include <QCoreApplication>
#include <QPluginLoader>

#include <stdexcept>

using namespace Qt::StringLiterals;

namespace media {

namespace {

const auto ModuleFile = u"quaverly-media.so"_s;

} // namespace

std::unique_ptr<Engine> loadEngine(const MediaOptions &options)
{
    const QString folder =
        options.moduleFolder.isEmpty() ? QCoreApplication::applicationDirPath() : options.moduleFolder;
    // The loader may go, the module stays: libraries with threads of their own don't survive unloading.
    const QString module = folder + quaverly::PathSeparator + ModuleFile;
    QPluginLoader loader(module);
    const auto *factory = qobject_cast<EngineFactory *>(loader.instance());
    if (factory == nullptr) {
        throw std::runtime_error(
            u"Music can't be played, because \"%1\" can't be loaded: %2"_s.arg(module, loader.errorString())
                .toStdString());
    }
    return factory->makeEngine({options.audioOutput, options.outputFile, options.untimed});
}

} // namespace media
