// SPDX-License-Identifier: GPL-3.0-or-later
#include "script/file_analysis.h"

#include "script/file_model.h"

namespace kevra::script {

std::vector<Finding> analyseFile(std::string_view text, FileKind kind)
{
    return FileModel(text, kind).findings();
}

} // namespace kevra::script
