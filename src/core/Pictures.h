#pragma once

/// The picture ids of the windows' models, in one place for whoever draws them.
namespace qvm {

/// State column of F6: an adapter.
namespace AdapterPicture {
inline constexpr int None = 0, Present = 1, Absent = 2, Unusable = 3; ///< Unusable: there, but its name is of no class
}

/// Status icon of F13: the lock must still change its channel, or not.
namespace ChannelPicture {
inline constexpr int None = 0, Image7 = 7, Image8 = 8;
}

/// The five state reports of F9, in the order of the images.
namespace StatePicture {
inline constexpr int None = 0, Image1 = 1, Image2 = 2, Image3 = 3, Image4 = 4, Image5 = 5;
}

/// The signs of a run's end in F9. Each has a shape of its own.
namespace RunSign {
inline constexpr int None = 0, Done = 1, Attention = 2, Failed = 3;
}

/// Column StateText of F91.
namespace ListPicture {
inline constexpr int None = 0, Failed = 1;
}

} // namespace qvm
