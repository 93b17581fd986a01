#pragma once
// What a person can do with any picture: copy it, save it as an image, a drawing or numbers.

class QMenu;

namespace tarvex {

class PictureView;

/// Adds the commands of a picture to a menu; they do nothing once the picture has gone.
void addPictureCommands(QMenu& menu, PictureView& view);

}  // namespace tarvex
