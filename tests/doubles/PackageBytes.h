#pragma once

#include "office/opc/Package.h"

#include <string>

namespace mergeloom {

/// Returns a package as the bytes of its file.
inline std::string packageBytes(opc::Package& package) {
    struct Sink final : ByteSink {
        void write(std::span<const char> part) override { bytes.append(part.data(), part.size()); }
        std::string bytes;
    } sink;
    package.write(sink);
    return sink.bytes;
}

}  // namespace mergeloom
