target_sources(engine PRIVATE
    PlayQueue.cpp
    Player.cpp
    PulseBackend.cpp
    PulseConnection.cpp
    PulseOut.cpp
    PulsePlayer.cpp
)
