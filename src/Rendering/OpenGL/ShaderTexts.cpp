#include "Rendering/OpenGL/ShaderTexts.h"

namespace Rendering::OpenGL {

const char* const kGeometryUniforms = R"glsl(
uniform mat4 world;
uniform mat4 worldView;
uniform mat4 worldViewProjection;
uniform int matrixCount; // 0: all are identities
layout(std140) uniform Matrices { mat4 matrices[100]; };

uniform vec3 colours[4];
uniform float scalars[5];
#define ambient colours[0]
#define directional colours[1]
#define emitted colours[2]
#define highlight colours[3]
#define opacity scalars[0]
)glsl";

const char* const kGeometryVertex = R"glsl(
layout(location = 0) in vec3 position;
layout(location = 1) in vec3 normal;
layout(location = 2) in vec2 texturePosition;
layout(location = 4) in uvec4 blendIndices;
layout(location = 5) in vec4 blendWeights;

out vec2 at;
out vec3 viewNormal;

mat4 Bone(uint index) {
    return matrices[min(index, uint(matrixCount - 1))];
}

void main() {
    vec4 point = vec4(position, 1.0);
    vec3 facing = normal;
    if (matrixCount > 0) {
        mat4 skin = Bone(blendIndices.x) * blendWeights.x + Bone(blendIndices.y) * blendWeights.y +
                    Bone(blendIndices.z) * blendWeights.z + Bone(blendIndices.w) * blendWeights.w;
        point = skin * point;
        facing = mat3(skin) * facing;
    }
    gl_Position = worldViewProjection * point;
    viewNormal = mat3(worldView) * facing;
    at = texturePosition;
}
)glsl";

// Reprojects an image that was drawn earlier with matrices[0] from world to clip space to the current view.
const char* const kTimeWarpVertex = R"glsl(
layout(location = 0) in vec3 position;
layout(location = 1) in vec3 normal;

out vec4 earlier;
out vec3 viewNormal;

void main() {
    vec4 point = vec4(position, 1.0);
    gl_Position = worldViewProjection * point;
    viewNormal = mat3(worldView) * normal;
    earlier = world * point;
    if (matrixCount > 0)
        earlier = matrices[0] * earlier;
}
)glsl";

// The light comes over the viewer's shoulder. It lights both sides of a face because faces are not culled.
const char* const kLighting = R"glsl(
uniform sampler2D picture;
in vec3 viewNormal;
out vec4 result;

const vec3 kLight = vec3(0.36, 0.48, -0.8);

// A face whose corners share one texture position has no gradient, which Mesa's software renderer (25.0) filters to
// black if the sampler is anisotropic.
vec4 Texel(vec2 place) {
    vec4 filtered = texture(picture, place);
    return fwidth(place) == vec2(0.0) ? textureLod(picture, place, 0.0) : filtered;
}

vec3 Lit(vec3 surface) {
    float facing = abs(dot(viewNormal, kLight)) / max(length(viewNormal), 1e-6);
    return surface * (ambient + directional * facing) + emitted + highlight * pow(facing, max(scalars[2], 1e-6));
}
)glsl";

const char* const kGeometryPlain = R"glsl(
in vec2 at;

void main() {
    result = vec4(Lit(Texel(at).rgb), opacity);
}
)glsl";

const char* const kGeometryBlending = R"glsl(
in vec2 at;

void main() {
    vec4 texel = Texel(at);
    result = vec4(Lit(texel.rgb), texel.a * opacity);
}
)glsl";

// Fades out towards the image's edges; scalars[2] is 1 / width of the fade.
const char* const kGeometryEdgeBlend = R"glsl(
in vec2 at;

void main() {
    vec4 texel = Texel(at);
    vec2 inside = min(at, 1.0 - at);
    float edge = clamp(min(inside.x, inside.y) * scalars[2], 0.0, 1.0);
    result = vec4(Lit(texel.rgb), texel.a * opacity * edge);
}
)glsl";

const char* const kGeometryTimeWarp = R"glsl(
in vec4 earlier;

void main() {
    vec2 margin = 2.0 / vec2(textureSize(picture, 0)); // keeps the filter from the far edge, as the sampler wraps
    vec2 at = clamp(earlier.xy / earlier.w * 0.5 + 0.5, margin, 1.0 - margin);
    result = vec4(Lit(texture(picture, at).rgb), opacity);
}
)glsl";

// Areas outside the earlier image are black and transparent; the second image's alpha masks the rest.
const char* const kGeometryTimeWarpTextureClip = R"glsl(
uniform sampler2D furtherPicture;
in vec4 earlier;

void main() {
    vec2 at = earlier.xy / earlier.w * 0.5 + 0.5;
    vec2 inside = min(at, 1.0 - at);
    float shown = min(inside.x, inside.y) < 0.0 ? 0.0 : texture(furtherPicture, at).a;
    result = vec4(Lit(texture(picture, at).rgb), opacity) * shown;
}
)glsl";

// The third colour is the black level, 1 - the fourth the white level; scalars[4] changes the exponent of the curve
// between.
const char* const kGeometryLevels = R"glsl(
in vec2 at;

void main() {
    vec4 texel = Texel(at);
    vec3 range = max(1.0 - highlight - emitted, 1e-6);
    vec3 level = pow(clamp((texel.rgb - emitted) / range, 0.0, 1.0), vec3(1.0 + scalars[4]));
    float facing = abs(dot(viewNormal, kLight)) / max(length(viewNormal), 1e-6);
    result = vec4(level * (ambient + directional * facing), texel.a * opacity);
}
)glsl";

// Smooths along an edge of the image; the direction comes from the brightness of the four diagonal neighbours.
const char* const kGeometryFxaa = R"glsl(
in vec2 at;

float Brightness(vec3 colour) {
    return dot(colour, vec3(0.299, 0.587, 0.114));
}

void main() {
    vec2 texel = 1.0 / vec2(textureSize(picture, 0));
    vec4 centre = texture(picture, at);
    float upperLeft = Brightness(texture(picture, at + vec2(-1.0, 1.0) * texel).rgb);
    float upperRight = Brightness(texture(picture, at + vec2(1.0, 1.0) * texel).rgb);
    float lowerLeft = Brightness(texture(picture, at + vec2(-1.0, -1.0) * texel).rgb);
    float lowerRight = Brightness(texture(picture, at + vec2(1.0, -1.0) * texel).rgb);
    vec2 along = vec2(lowerLeft + lowerRight - upperLeft - upperRight, upperLeft + lowerLeft - upperRight - lowerRight);
    float least = max((upperLeft + upperRight + lowerLeft + lowerRight) / 32.0, 1.0 / 128.0);
    along = clamp(along / (min(abs(along.x), abs(along.y)) + least), -8.0, 8.0) * texel;
    vec3 near = 0.5 * (texture(picture, at - along / 6.0).rgb + texture(picture, at + along / 6.0).rgb);
    vec3 wide = 0.5 * near + 0.25 * (texture(picture, at - along / 2.0).rgb + texture(picture, at + along / 2.0).rgb);
    float darkest = min(min(upperLeft, upperRight), min(lowerLeft, lowerRight));
    float brightest = max(max(upperLeft, upperRight), max(lowerLeft, lowerRight));
    float own = Brightness(centre.rgb);
    float reached = Brightness(wide);
    bool beyond = reached < min(darkest, own) || reached > max(brightest, own);
    result = vec4(Lit(beyond ? near : wide), centre.a * opacity);
}
)glsl";

const char* const kRectUniforms = R"glsl(
uniform mat4 worldViewProjection;
uniform vec4 scalars; // the third is the brightness
uniform vec4 colour;
uniform vec4 textureRectangle; // lower left corner and size
)glsl";

const char* const kRectVertex = R"glsl(
layout(location = 0) in vec3 position;

out vec2 at;

void main() {
    gl_Position = worldViewProjection * vec4(position, 1.0);
    at = textureRectangle.xy + (position.xy * 0.5 + 0.5) * textureRectangle.zw;
}
)glsl";

const char* const kRectPlain = R"glsl(
uniform sampler2D picture;
in vec2 at;
out vec4 result;

void main() {
    vec4 texel = texture(picture, at) * colour;
    result = vec4(texel.rgb * scalars.z, texel.a);
}
)glsl";

// The gradient of the image's brightness.
const char* const kRectSobel = R"glsl(
uniform sampler2D picture;
in vec2 at;
out vec4 result;

float Brightness(float x, float y) {
    vec2 texel = 1.0 / vec2(textureSize(picture, 0));
    return dot(texture(picture, at + vec2(x, y) * texel).rgb, vec3(0.299, 0.587, 0.114));
}

void main() {
    float left = Brightness(-1.0, -1.0) + 2.0 * Brightness(-1.0, 0.0) + Brightness(-1.0, 1.0);
    float right = Brightness(1.0, -1.0) + 2.0 * Brightness(1.0, 0.0) + Brightness(1.0, 1.0);
    float lower = Brightness(-1.0, -1.0) + 2.0 * Brightness(0.0, -1.0) + Brightness(1.0, -1.0);
    float upper = Brightness(-1.0, 1.0) + 2.0 * Brightness(0.0, 1.0) + Brightness(1.0, 1.0);
    float steepness = length(vec2(right - left, upper - lower));
    result = vec4(steepness * colour.rgb * scalars.z, texture(picture, at).a * colour.a);
}
)glsl";

const char* const kLeapVertex = R"glsl(
layout(location = 0) in vec3 position;

out vec2 at;

void main() {
    gl_Position = vec4(position, 1.0);
    at = position.xy * 0.5 + 0.5;
}
)glsl";

// Both textures have their first row at v = 0, which is the top of the camera's image.
const char* const kLeapPlain = R"glsl(
uniform sampler2D picture;
uniform sampler2D distortion;
in vec2 at;
out vec4 result;

void main() {
    vec2 raw = texture(distortion, vec2(at.x, 1.0 - at.y)).xy;
    vec2 inside = min(raw, 1.0 - raw);
    if (min(inside.x, inside.y) < 0.0)
        discard;
    float grey = texture(picture, raw).r;
    result = vec4(grey, grey, grey, 1.0);
}
)glsl";

} // namespace Rendering::OpenGL
