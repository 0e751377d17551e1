// The steepness of a picture's brightness on a rectangle.
#define BRIGHTNESS(x, y) \
    dot(picture.Sample(pictureSampler, input.at + float2(x, y) * texel).rgb, float3(0.299, 0.587, 0.114))

cbuffer Rect : register(b0) {
    float4x4 world;
    float4x4 view;
    float4x4 projection;
    float4 parameters; // the third is the brightness
    float4 colour;
    float4 textureRectangle; // lower left corner and size, v being 0 at the bottom
};

cbuffer Picture : register(b1) {
    float2 texel; // the size of one, in texture coordinates
    float2 unused;
};

Texture2D picture : register(t0);
SamplerState pictureSampler : register(s0);

struct Point {
    float4 position : SV_Position;
    float2 at : TEXCOORD0; // v is 0 at the picture's top
};

Point VS(float3 position : POSITION) {
    Point result;
    result.position = mul(mul(mul(float4(position, 1.0), world), view), projection);
    float2 share = position.xy * 0.5 + 0.5;
    float2 at = textureRectangle.xy + share * textureRectangle.zw;
    result.at = float2(at.x, 1.0 - at.y);
    return result;
}

float4 PS(Point input) : SV_Target {
    float upperLeft = BRIGHTNESS(-1.0, -1.0);
    float upper = BRIGHTNESS(0.0, -1.0);
    float upperRight = BRIGHTNESS(1.0, -1.0);
    float left = BRIGHTNESS(-1.0, 0.0);
    float right = BRIGHTNESS(1.0, 0.0);
    float lowerLeft = BRIGHTNESS(-1.0, 1.0);
    float lower = BRIGHTNESS(0.0, 1.0);
    float lowerRight = BRIGHTNESS(1.0, 1.0);
    float across = upperRight + 2.0 * right + lowerRight - upperLeft - 2.0 * left - lowerLeft;
    float down = lowerLeft + 2.0 * lower + lowerRight - upperLeft - 2.0 * upper - upperRight;
    float steepness = length(float2(across, down));
    float4 centre = picture.Sample(pictureSampler, input.at);
    return float4(steepness * colour.rgb * parameters.z, centre.a * colour.a);
}
