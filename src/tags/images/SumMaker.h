// SPDX-License-Identifier: MIT
// The checksums by which lists of known games name images: CRC-32, MD5, SHA-1 and SHA-256. MD5 and SHA-1 are
// no proof against forgers; they are what the lists have.
#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <array>
#include <bitset>
#include <memory>

typedef struct evp_md_ctx_st EVP_MD_CTX;

namespace torvane {

/// From the weakest to the strongest.
enum class SumKind { crc32, md5, sha1, sha256 };
constexpr size_t sumKinds = 4;
/// The names of the kinds, as in lists and options.
inline constexpr std::array<const char*, sumKinds> sumNames = {"crc32", "md5", "sha1", "sha256"};
/// The lengths of the checksums in bytes.
inline constexpr std::array<qsizetype, sumKinds> sumSizes = {4, 16, 20, 32};

using WantedSums = std::bitset<sumKinds>;
/// The checksums of an image as bytes, by kind, the CRC with its highest byte first; empty where unknown.
using Sums = std::array<QByteArray, sumKinds>;

/// Sums up bytes as they come.
class SumMaker {
public:
    /// Fails with "invalid call" if the system's library does not offer a wanted sum.
    explicit SumMaker(WantedSums wanted);

    void add(QByteArrayView bytes);
    /// The checksums of all bytes so far. The object is of no use afterwards.
    Sums finish();

private:
    struct Closer {
        void operator()(EVP_MD_CTX* context) const;
    };

    WantedSums m_wanted;
    std::array<std::unique_ptr<EVP_MD_CTX, Closer>, sumKinds> m_contexts; // none for the CRC
    unsigned long m_crc = 0;
};

} // namespace torvane
