#include "users/authoritymanager.h"

#include "link/app_messages.h"
#include "link/appcalls.h"
#include "link/deviceparams.h"
#include "link/parameters.h"

#include <zrtimer>
#include <zrvector>

AuthorityManager *AuthorityManager::instance_ = nullptr;

namespace
{

constexpr int NoUser = 255; // as App counts them
constexpr int UserLogClass = 3;
constexpr int LoginLogged = 0;
constexpr int LogoutLogged = 1;
constexpr int RecheckDelayMs = 50; // lets the messages of one change arrive first

} // namespace

AuthorityManager::AuthorityManager(ZrObject *parent) : ZrObject(parent)
{
    instance_ = this;
    for (int index = 1; index <= users::AccountCount; ++index)
        users_.append(new User(index, channelCount(), this));
    const int autoLoginUser = readAccounts();
    start(autoLoginUser);
}

AuthorityManager::~AuthorityManager()
{
    instance_ = nullptr;
}

void AuthorityManager::start(int autoLoginUser)
{
    if (!loginRequired_) {
        setCurrentUser(User::AdministratorIndex);
        return;
    }
    setCurrentUser(autoLoginUser);
    setLocked(true);
}

User *AuthorityManager::user(int index) const
{
    return index >= 1 && index <= users_.size() ? users_.at(index - 1) : nullptr;
}

int AuthorityManager::readAccounts()
{
    std::uint8_t block[users::AccountRecordSize];
    ZrGetParam(users::AccountKind, block, sizeof block);
    WireReader record(block, sizeof block);
    int enabled = 0;
    for (User *user : users_) {
        const std::size_t base = std::size_t(user->index() - 1) * users::AccountEntry::Size;
        user->take(users::AccountEntry::decode(record, base), channelCount());
        enabled += user->isEnabled();
    }
    deviceId_ = record.u32(users::OffsetDeviceId);
    loginRequired_ = enabled > 1 || user(User::AdministratorIndex)->passwordEnabled();
    emit(this, &accountsChanged);
    return record.u8(users::OffsetAutoLoginUser);
}

void AuthorityManager::loadAccounts()
{
    readAccounts();
    ZrSingleShotTimer::singleShot(RecheckDelayMs, this,
                                  zrSlot<&AuthorityManager::checkCurrentUser>);
}

void AuthorityManager::checkCurrentUser()
{
    if (currentUser_ && !currentUser_->isEnabled())
        setCurrentUser(0);
}

void AuthorityManager::setCurrentUser(int index)
{
    User *next = user(index);
    if (next && !next->isEnabled())
        next = nullptr;
    if (next == currentUser_)
        return;
    if (currentUser_)
        log(LogoutLogged);
    currentUser_ = next;
    emit(this, &userChanged);
    WireWriter record(4);
    record.u32(0, std::uint32_t(next ? next->index() - 1 : NoUser));
    appSend(AppMain::system, AppSystem::currentUser, record.data(), std::uint32_t(record.size()));
    if (!next)
        return;
    log(LoginLogged);
    setLocked(false);
}

void AuthorityManager::setLocked(bool locked)
{
    if (locked == locked_)
        return;
    locked_ = locked;
    emit(this, &lockChanged);
}

// App keeps the log: class, event, and whose it is.
void AuthorityManager::log(int event) const
{
    WireWriter record(4);
    record.u8(0, UserLogClass)
        .u8(1, std::uint8_t(event))
        .u8(2, std::uint8_t(currentUser_ ? currentUser_->index() - 1 : NoUser));
    appSend(AppMain::system, AppSystem::userStateChange, record.data(),
            std::uint32_t(record.size()));
}
