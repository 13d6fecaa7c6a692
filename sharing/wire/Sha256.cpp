#include "sharing/wire/Sha256.h"

#include <openssl/evp.h>

#include <new>

namespace InkSharing {

namespace {

// No digest fails but for want of memory.
void require(int isDone)
{
    if (isDone != 1)
        throw std::bad_alloc();
}

} // namespace

void Sha256::Freed::operator()(evp_md_ctx_st *context) const
{
    EVP_MD_CTX_free(context);
}

Sha256::Context Sha256::fresh()
{
    Context context(EVP_MD_CTX_new());
    require(context ? 1 : 0);
    return context;
}

Sha256::Sha256()
    : m_context(fresh())
{
    require(EVP_DigestInit_ex(m_context.get(), EVP_sha256(), nullptr));
}

Sha256::~Sha256() = default;

void Sha256::add(const char *bytes, std::size_t count)
{
    require(EVP_DigestUpdate(m_context.get(), bytes, count));
}

QByteArray Sha256::result() const
{
    constexpr int kBytes = 32;
    const Context copy = fresh();
    require(EVP_MD_CTX_copy_ex(copy.get(), m_context.get()));
    QByteArray result(kBytes, Qt::Uninitialized);
    require(EVP_DigestFinal_ex(copy.get(), reinterpret_cast<uchar *>(result.data()), nullptr));
    return result;
}

} // namespace InkSharing
