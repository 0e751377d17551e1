// The picture's colours under the lights; alpha is the picture's times the opacity.
cbuffer Geometry : register(b0) {
    float4x4 world;
    float4x4 view;
    float4x4 projection;
    float4 firstColour;  // ambient light
    float4 secondColour; // directional light
    float4 thirdColour;  // added to what the lights give
    float opacity;
    float shaderParam1;
    float shaderParam2;
    float shaderParam3;
    float shaderParam4;
    float unused1;
    float unused2;
    float unused3;
    float4 fourthColour; // highlight
    float4x4 matrices[100];
};

cbuffer Picture : register(b1) {
    float2 texel; // the size of one, in texture coordinates
    float2 unused4;
};

Texture2D picture : register(t0);
SamplerState pictureSampler : register(s0);

struct Vertex {
    float3 position : POSITION;
    float3 normal : NORMAL;
    float2 texturePosition : TEXCOORD0;
    float2 secondTexturePosition : TEXCOORD1;
    uint4 blendIndices : BLENDINDICES;
    float4 blendWeights : BLENDWEIGHT;
};

struct Point {
    float4 position : SV_Position;
    float2 at : TEXCOORD0; // v is 0 at the picture's top
    float3 viewNormal : TEXCOORD1;
};

Point VS(Vertex vertex) {
    Point result;
    float4 position = float4(vertex.position, 1.0);
    float4 normal = float4(vertex.normal, 0.0);
    float4 moved = mul(position, matrices[vertex.blendIndices.x]) * vertex.blendWeights.x +
                   mul(position, matrices[vertex.blendIndices.y]) * vertex.blendWeights.y +
                   mul(position, matrices[vertex.blendIndices.z]) * vertex.blendWeights.z +
                   mul(position, matrices[vertex.blendIndices.w]) * vertex.blendWeights.w;
    float4 turned = mul(normal, matrices[vertex.blendIndices.x]) * vertex.blendWeights.x +
                    mul(normal, matrices[vertex.blendIndices.y]) * vertex.blendWeights.y +
                    mul(normal, matrices[vertex.blendIndices.z]) * vertex.blendWeights.z +
                    mul(normal, matrices[vertex.blendIndices.w]) * vertex.blendWeights.w;
    result.position = mul(mul(mul(moved, world), view), projection);
    float4 viewNormal = mul(mul(float4(turned.xyz, 0.0), world), view);
    result.viewNormal = viewNormal.xyz;
    result.at = float2(vertex.texturePosition.x, 1.0 - vertex.texturePosition.y);
    return result;
}

float4 PS(Point input) : SV_Target {
    // The light comes over the viewer's shoulder and shines on both sides of a face, as faces are not culled.
    float facing = abs(dot(input.viewNormal, float3(0.36, 0.48, -0.8))) / max(length(input.viewNormal), 0.000001);
    float3 lights = firstColour.rgb + secondColour.rgb * facing;
    float3 added = thirdColour.rgb + fourthColour.rgb * pow(facing, max(shaderParam2, 0.000001));
    float4 colour = picture.Sample(pictureSampler, input.at);
    return float4(colour.rgb * lights + added, colour.a * opacity);
}
