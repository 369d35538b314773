// Who may do what: the seven accounts, who is logged in, whether the screen is locked.
// Widget thread only.
#pragma once

#include "users/user.h"

#include <zrlist>

class AuthorityManager : public ZrObject
{
    ZR_OBJECT(AuthorityManager, ZrObject)
public:
    // Reads the accounts and logs in whom they say.
    explicit AuthorityManager(ZrObject *parent);
    ~AuthorityManager() override;
    static AuthorityManager *instance() { return instance_; }

    ZrSignal userChanged;
    ZrSignal accountsChanged;
    ZrSignal lockChanged;

    // Index 1 to 7, otherwise null.
    User *user(int index) const;
    User *currentUser() const { return currentUser_; }
    // 0, a bad index or a disabled account logs out.
    void setCurrentUser(int index);
    bool isLocked() const { return locked_; }
    bool isLoginRequired() const { return loginRequired_; }
    std::uint32_t deviceId() const { return deviceId_; }
    // Reads the accounts anew, after App reported a change.
    void loadAccounts();

private:
    void start(int autoLoginUser);
    int readAccounts();
    void checkCurrentUser();
    void setLocked(bool locked);
    void log(int event) const;

    static AuthorityManager *instance_;
    ZrList<User *> users_; // by index; the objects are children
    User *currentUser_ = nullptr;
    std::uint32_t deviceId_ = 0;
    bool locked_ = false;
    bool loginRequired_ = false;
};
