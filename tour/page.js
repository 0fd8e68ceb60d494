// SPDX-License-Identifier: MIT
// A click shows a picture in its full size, another one or Escape puts it back.
const putBack = () =>
    document.querySelectorAll('.large').forEach(each => each.classList.remove('large'));
document.addEventListener('click', event => {
    const picture = event.target.closest('.picture');
    const wasLarge = picture && picture.classList.contains('large');
    putBack();
    if (picture && !wasLarge) {
        picture.classList.add('large');
    }
});
document.addEventListener('keydown', event => {
    if (event.key === 'Escape') {
        putBack();
    }
});
