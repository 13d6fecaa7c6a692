#pragma once

#include "Disk.h"
#include "Network.h"
#include "RandomActs.h"

#include "sharing/client/Client.h"
#include "sharing/live/LiveSender.h"
#include "sharing/live/Others.h"

#include "lesson/storage/Journal.h"

#include <set>

namespace Simulator {

// A person with a board of their own, its journal and its connection. It may be killed, and comes back from what its
// disk has.
class Board : public Caller, public InkSharing::ClientHost
{
public:
    // `folder` is for the locks of journals. Who creates has a lesson already, of more than one author.
    Board(World &world, int name, std::vector<std::unique_ptr<DoorProcess>> &doors, const QString &folder,
          bool creates);

    void start();
    enum class Death { Program, Machine };
    void kill(Death death);
    bool isUp() const { return m_client != nullptr; }

    void actNowAndThen(); // until it is told to rest
    void pause() { m_rests = true; }
    void rest(); // lets go what it has in hand
    void cut(bool isSilent);
    void fillDisk() { m_disk->isFull = true; }
    void clearDisk();

    const InkSharing::Client *client() const { return m_client.get(); }
    InkLesson::Lesson *lesson() { return m_lesson.get(); }

    // Steps that have settled here, and that no loss of a disk has made this board forget.
    const std::set<InkLesson::StepId> &acknowledged() const { return m_acknowledged; }

    // Whether it knows all that has been done to what another has in hand. Empty, or what is missing.
    QString misses(const Board &other) const;

    // What would be found after a kill.
    QByteArray journal();

    // What has happened to it that never may. Empty where nothing has.
    const QString &grievance() const { return m_grievance; }

    void opened() override;
    void received(const QByteArray &message) override;
    void closed() override;

    void connectToDoor() override;
    void send(const QByteArray &message) override;
    void disconnectFromDoor() override;
    InkLesson::Lesson &begin(const InkLesson::Header &header) override;
    void lostStep(const InkLesson::Lesson::Refusal &refusal) override;
    void heard(int author, const QByteArray &payload) override;
    bool readsBeside(const QByteArray &code) override;

private:
    void makeBase();
    std::unique_ptr<InkLesson::Lesson> recovered() const;
    void settleDown(bool isFromJournal);
    void tick(int life);
    void act();
    void insertPicture();
    void undoOfAnother();
    void noted(const InkLesson::Lesson::LogChange &change);
    void look(const InkLesson::Lesson::LogChange &change);

    World &m_world;
    const int m_name;
    std::vector<std::unique_ptr<DoorProcess>> &m_doors;
    const QString m_folder;
    const bool m_creates;
    const QByteArray m_token;
    const qint64 m_slowness, m_bytesPerSecond, m_pace;

    int m_life{}; // that it is in, from 1 on
    std::unique_ptr<Disk> m_disk;
    std::unique_ptr<InkLesson::Lesson> m_lesson;
    std::unique_ptr<InkLesson::Lesson> m_recovered; // while it is down: what its journal has
    std::unique_ptr<InkLesson::Journal> m_journal;
    std::unique_ptr<InkLesson::Author> m_author;
    std::unique_ptr<RandomActs> m_acts;
    std::unique_ptr<InkSharing::Client> m_client;
    std::unique_ptr<InkSharing::LiveSender> m_live;
    std::unique_ptr<InkSharing::Others> m_others;
    DoorProcess *m_door{};
    int m_connection{};
    qint64 m_syncAt{};
    bool m_rests{};
    std::size_t m_pending{};    // as far as the log has told
    std::size_t m_wasSetBack{}; // 1 and what was pending before
    QString m_grievance;
    std::set<QByteArray> m_uploads; // on this connection
    std::set<InkLesson::StepId> m_acknowledged;
};

} // namespace Simulator
