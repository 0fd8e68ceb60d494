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

// The step in sight that was gone to last, or else the one at the upper edge; -1 before the first.
const steps = Array.from(document.querySelectorAll('section'));
const currentStep = () => {
    const inSight = step => {
        const place = step.getBoundingClientRect();
        return place.bottom > 0 && place.top < innerHeight;
    };
    const goneTo = steps.findIndex(step => '#' + step.id === location.hash && inSight(step));
    const atEdge = 40; // a little more than the space that is left above a step
    const begun = steps.filter(step => step.getBoundingClientRect().top < atEdge);
    return goneTo >= 0 ? goneTo : begun.length - 1;
};
const directions = { ArrowRight: 1, ArrowLeft: -1 };
document.addEventListener('keydown', event => {
    if (event.key === 'Escape') {
        putBack();
    }
    const direction = directions[event.key];
    if (!direction || event.altKey || event.ctrlKey || event.metaKey || event.shiftKey) {
        return;
    }
    event.preventDefault();
    putBack();
    const step = steps[currentStep() + direction];
    if (step) {
        location.replace('#' + step.id);
    }
});

// Where there is no room beside the steps, the list of them is folded.
const contents = document.querySelector('nav details');
const narrow = matchMedia('(max-width: 70rem)');
const fold = () => {
    contents.open = !narrow.matches;
};
fold();
narrow.addEventListener('change', fold);

// A picture wider than the screen is shown from where the operator clicks.
document.querySelectorAll('.frame').forEach(frame => {
    const click = frame.querySelector('i');
    if (click) {
        frame.scrollLeft = click.offsetLeft - frame.clientWidth / 2;
    }
});
