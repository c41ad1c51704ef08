// The cabin's network: the links to the Listeners, their supervision and their screens.
#pragma once

#include "core/desk.h"
#include "listener/link_supervision.h"
#include "listener/screens/listeners_form.h"
#include "listener/screens/network_form.h"

namespace korvane {

class ListenerSide {
 public:
  explicit ListenerSide(Desk& desk);

  std::unique_ptr<Winsock> connectionMP3, connectionMovie, connectionML;
  MasterListener master;
  NetworkForm network;
  ListenersForm listeners;
  MusicConnection music;
  MovieConnection movies;
  LinkSupervision links;

  // Closes the socket of that type of service when its choice has gone from frmNetwork.
  void closesWith(const QString& type, std::function<void()> close) {
    closers_[type] = std::move(close);
  }

 private:
  void connectMaster(Desk& desk);

  QHash<QString, std::function<void()>> closers_;
};

}  // namespace korvane
