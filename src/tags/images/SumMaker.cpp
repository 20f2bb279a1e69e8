// SPDX-License-Identifier: MIT
// Digests by OpenSSL, which uses the processor's instructions for them and is there with libzip; zlib has the
// CRC.
#include "SumMaker.h"
#include "platform/base/RuntimeFailure.h"

#include <QtEndian>
#include <openssl/evp.h>
#include <zlib.h>

namespace torvane {

namespace {
constexpr auto crc = static_cast<size_t>(SumKind::crc32);

const EVP_MD* algorithm(size_t kind) {
    switch (static_cast<SumKind>(kind)) {
    case SumKind::md5: return EVP_md5();
    case SumKind::sha1: return EVP_sha1();
    case SumKind::sha256: return EVP_sha256();
    case SumKind::crc32: break;
    }
    return nullptr;
}

void require(int result) {
    if (result != 1) throw RuntimeFailure(RuntimeFailure::invalidCall);
}
} // namespace

void SumMaker::Closer::operator()(EVP_MD_CTX* context) const { EVP_MD_CTX_free(context); }

SumMaker::SumMaker(WantedSums wanted) : m_wanted(wanted) {
    for (size_t kind = 0; kind < sumKinds; ++kind) {
        if (kind == crc || !m_wanted[kind]) continue;
        m_contexts[kind].reset(EVP_MD_CTX_new());
        require(m_contexts[kind] ? EVP_DigestInit_ex(m_contexts[kind].get(), algorithm(kind), nullptr) : 0);
    }
}

void SumMaker::add(QByteArrayView bytes) {
    const auto size = static_cast<size_t>(bytes.size());
    if (m_wanted[crc]) m_crc = crc32_z(m_crc, reinterpret_cast<const Bytef*>(bytes.data()), size);
    for (const auto& context : m_contexts) {
        if (context) require(EVP_DigestUpdate(context.get(), bytes.data(), size));
    }
}

Sums SumMaker::finish() {
    Sums sums;
    if (m_wanted[crc]) {
        sums[crc].resize(sumSizes[crc]);
        qToBigEndian(static_cast<quint32>(m_crc), sums[crc].data());
    }
    for (size_t kind = 0; kind < sumKinds; ++kind) {
        if (!m_contexts[kind]) continue;
        sums[kind].resize(sumSizes[kind]);
        require(EVP_DigestFinal_ex(m_contexts[kind].get(),
                                   reinterpret_cast<unsigned char*>(sums[kind].data()), nullptr));
    }
    return sums;
}

} // namespace torvane
